#include "page_control/clipboard/engine_clipboard.h"

#include <span>
#include <string_view>
#include <utility>

#include "base/embedded_text.h"
#include "page_control/encoding/base64.h"

namespace tarvik {

extern const EmbeddedText kClipboardPage;

namespace {

// Only secure origins have access. The request for it is answered here.
constexpr const char* kOrigin = "https://clipboard.invalid";

const Json kHtmlHeaders = Json::array({{{"name", "Content-Type"}, {"value", "text/html"}}});

// The engine disconnects at messages of 100 MB.
constexpr size_t kMaxPart = 4 << 20;

void AddParts(const char* format, std::span<const BYTE> bytes, std::vector<std::string>& expressions) {
    const std::string text = EncodeBase64(bytes);
    for (size_t start = 0; start < text.size(); start += kMaxPart)
        expressions.push_back(std::string("add('") + format + "','" + text.substr(start, kMaxPart) + "')");
}

std::span<const BYTE> BytesOf(const std::string& text) {
    return {reinterpret_cast<const BYTE*>(text.data()), text.size()};
}

ClipboardContent FromJson(const Json& json) {
    ClipboardContent content = {json.value("text", ""), json.value("html", ""), {}};
    DecodeBase64(json.value("png", ""), content.png);
    return content;
}

}  // namespace

void AllowClipboard(DevTools& engine, const std::string& origin) {
    for (const char* name : {"clipboard-read", "clipboard-write"})
        engine.Post("", "Browser.setPermission",
                    {{"permission", {{"name", name}}}, {"setting", "granted"}, {"origin", origin}});
}

void EngineClipboard::Read(std::function<void(const ClipboardContent* content)> handler) {
    Start({"read()"}, [handler = std::move(handler)](const Json* value) {
        if (!value) return handler(nullptr);
        const ClipboardContent content = FromJson(*value);
        handler(&content);
    });
}

void EngineClipboard::Write(const ClipboardContent& content, std::function<void(bool succeeded)> handler) {
    std::vector<std::string> expressions = {"parts = {}"};
    AddParts("text/plain", BytesOf(content.text), expressions);
    AddParts("text/html", BytesOf(content.html), expressions);
    AddParts("image/png", content.png, expressions);
    expressions.emplace_back("write()");
    Start(std::move(expressions), [handler = std::move(handler)](const Json* value) { handler(value); });
}

void EngineClipboard::Start(std::vector<std::string> expressions, Handler handler) {
    expressions_ = std::move(expressions);
    handler_ = std::move(handler);
    page_ ? Evaluate() : OpenPage();
}

void EngineClipboard::OpenPage() {
    PageTarget::Open(engine_, IfAlive([this](std::unique_ptr<PageTarget> page) { OnPage(std::move(page)); }));
}

void EngineClipboard::OnPage(std::unique_ptr<PageTarget> page) {
    page_ = std::move(page);
    if (!page_) return Finish(nullptr);
    subscriptions_ = {
        page_->Events().Subscribe<event::RequestPaused>([this](const event::RequestPaused& request) {
            page_->Post(
                "Fetch.fulfillRequest",
                {{"requestId", request.requestId}, {"responseCode", 200}, {"responseHeaders", kHtmlHeaders}});
        }),
        page_->Events().Subscribe<event::TargetCrashed>([this](const auto&) { Finish(nullptr); }),
    };
    AllowClipboard(*engine_, kOrigin);
    page_->Post("Inspector.enable");
    page_->Post("Page.enable");
    page_->Post("Emulation.setFocusEmulationEnabled", {{"enabled", true}});
    page_->Post("Fetch.enable", {{"patterns", {{{"urlPattern", "*"}, {"resourceType", "Document"}}}}});
    // The navigation waits, because it could overtake the commands.
    page_->Post("Page.addScriptToEvaluateOnNewDocument", {{"source", kClipboardPage.Text()}},
                IfAlive([this](const Json* result) { result ? Navigate() : Finish(nullptr); }));
}

void EngineClipboard::Navigate() {
    page_->Post("Page.navigate", {{"url", kOrigin}},
                IfAlive([this](const Json* result) { result ? Evaluate() : Finish(nullptr); }));
}

void EngineClipboard::Evaluate() {
    for (const std::string& expression : expressions_) {
        const bool isLast = &expression == &expressions_.back();
        const Json parameters = {{"expression", expression}, {"awaitPromise", true}, {"returnByValue", true}};
        const auto onReply = IfAlive([this](const Json* reply) {
            const bool failed = !reply || reply->contains("exceptionDetails");
            Finish(failed ? nullptr : &reply->at("result").at("value"));
        });
        page_->Post("Runtime.evaluate", parameters,
                    isLast ? DevTools::ReplyHandler(onReply) : DevTools::ReplyHandler());
    }
    expressions_.clear();
}

// After a failure the next operation opens another page.
void EngineClipboard::Finish(const Json* value) {
    if (!value) {
        subscriptions_.clear();
        page_.reset();
    }
    if (const Handler handler = std::exchange(handler_, nullptr)) handler(value);
}

}  // namespace tarvik
