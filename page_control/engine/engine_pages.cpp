#include "page_control/engine/engine_pages.h"

#include <utility>

#include "page_control/engine/unix_path.h"

namespace tarvik {

namespace {

constexpr DWORD kStartTimeout = 20000;
constexpr UINT kCloseRetryInterval = 500;

const Json kNewPage = {{"url", "about:blank"}, {"newWindow", true}, {"background", true}};

}  // namespace

EnginePages::EnginePages(DevTools& engine)
    : engine_(engine), window_([this](UINT message, WPARAM timer) {
          if (message == WM_TIMER && timer == kCloseTimer) RetryClose();
      }) {}

void EnginePages::Start() {
    created_ = events_.Subscribe<event::TargetCreated>([this](const event::TargetCreated& created) {
        unclaimed_.insert(created.targetId);
        CloseUnclaimed();
    });
    destroyed_ = events_.Subscribe<event::TargetDestroyed>(
        [this](const event::TargetDestroyed& destroyed) { closing_.erase(destroyed.targetId); });
    engine_.Listen("",
                   [this](std::string_view method, const Json& params) { events_.Dispatch(method, params); });
    const Json targets = engine_.Call("", "Target.getTargets", {}, kStartTimeout);
    for (const Json& target : targets.at("targetInfos")) {
        if (target.value("type", "") == "page") firstPage_ = target.at("targetId");
    }
    pages_.insert(firstPage_);
    // The reply comes before that of any command for a page.
    engine_.Post("", "Browser.getVersion", {}, [this](const Json* result) {
        if (result) userAgent_ = result->value("userAgent", "");
    });
    engine_.Post("", "Target.setDiscoverTargets", {{"discover", true}, {"filter", {{{"type", "page"}}}}});
    // Without a browser's window, nothing could ask the user. AllowClipboard makes exceptions.
    for (const char* name : {"camera", "clipboard-read", "clipboard-write", "geolocation", "idle-detection",
                             "local-fonts", "microphone", "midi", "notifications", "window-management"})
        engine_.Post("", "Browser.setPermission", {{"permission", {{"name", name}}}, {"setting", "denied"}});
    // The pages' events of downloads come without the events of the browser.
    engine_.Post("", "Browser.setDownloadBehavior",
                 {{"behavior", "allowAndName"}, {"downloadPath", EnginePath(engine_.DownloadFolder())}});
}

// The first control takes the engine's first page. Later ones need their own windows: of several pages in one
// window, only the front one gets frames. In the background, because others would have the focus.
std::string EnginePages::Open() {
    if (!firstPage_.empty()) return std::exchange(firstPage_, {});
    ++opening_;
    std::string id;
    try {
        id = engine_.Call("", "Target.createTarget", kNewPage, kStartTimeout).at("targetId");
    } catch (...) {
        OnOpened({});
        throw;
    }
    OnOpened(id);
    return id;
}

void EnginePages::Open(DevTools::OpenHandler handler) {
    ++opening_;
    engine_.Post("", "Target.createTarget", kNewPage,
                 [this, handler = std::move(handler)](const Json* result) {
                     const std::string id = result ? result->value("targetId", "") : "";
                     OnOpened(id);
                     handler(id);
                 });
}

// The id is empty if the page could not be opened.
void EnginePages::OnOpened(const std::string& id) {
    --opening_;
    if (!id.empty()) pages_.insert(id);
    CloseUnclaimed();
}

// During a navigation a page may ignore the command although the engine confirms it. So it is repeated until
// the target has been destroyed.
void EnginePages::Close(const std::string& id) {
    pages_.erase(id);
    closing_.insert(id);
    SendClose(id);
    SetTimer(window_.Get(), kCloseTimer, kCloseRetryInterval, nullptr);
}

void EnginePages::RetryClose() {
    if (closing_.empty()) KillTimer(window_.Get(), kCloseTimer);
    const std::set<std::string> closing = closing_;  // an engine that has ended replies during the loop
    for (const std::string& id : closing)
        SendClose(id);
}

// An error reply means that the target does not exist.
void EnginePages::SendClose(const std::string& id) {
    engine_.Post("", "Target.closeTarget", {{"targetId", id}}, [this, id](const Json* result) {
        if (!result) closing_.erase(id);
    });
}

void EnginePages::CloseUnclaimed() {
    if (opening_ > 0) return;
    for (const std::string& id : std::exchange(unclaimed_, {})) {
        if (!pages_.contains(id)) Close(id);
    }
}

}  // namespace tarvik
