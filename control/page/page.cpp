#include "control/page/page.h"

#include <map>

#include "tarvik/status.h"
#include "base/text.h"
#include "control/bridge/script_source.h"
#include "control/engine/engine_address.h"

namespace tarvik {

namespace {

constexpr const wchar_t* kRetry = L"\n\nClick here to try again.";

}  // namespace

Page::Page(HWND window, PageEvents& events, bool textIsSelectable)
    : window_(window),
      events_(&events),
      view_(window, {textIsSelectable, [this](const std::wstring& url) { OnOpenWindow(url); }}) {}

void Page::Navigate(const std::wstring& address) {
    wanted_ = address;
    if (!target_ && !Connect()) return;
    loading_ = true;
    target_->Post("Page.navigate", {{"url", EngineAddress(wanted_)}});
}

// Starts the engine, if no other page has, and opens a target in it. Each step waits, and the page may be
// closed or be sent somewhere else meanwhile.
bool Page::Connect() {
    if (std::exchange(connecting_, true)) return false;
    const auto self = shared_from_this();
    std::unique_ptr<PageTarget> target;
    std::unique_ptr<ScriptBridge> bridge;
    const auto requireOpen = [this] {
        if (!events_) throw StatusError(E_ABORT);
    };
    try {
        target = std::make_unique<PageTarget>(DevTools::Acquire());
        requireOpen();
        target->Engine().Listen(target->Session(),
                                [weak = weak_from_this()](std::string_view method, const Json& params) {
                                    if (const auto page = weak.lock()) page->OnEvent(method, params);
                                });
        target->Post("Page.enable");
        target->Post("Inspector.enable");
        target->Post("Fetch.enable",
                     {{"patterns", Json::array({{{"urlPattern", "*"}, {"resourceType", "Document"}}})}});
        view_.SetTarget(target.get());
        requireOpen();
        bridge = std::make_unique<ScriptBridge>(*target, *this);
        requireOpen();
        target_ = std::move(target);
        bridge_ = std::move(bridge);
        broken_ = false;
        scriptAllowed_ = true;
    } catch (const std::exception&) {
        bridge.reset();
        view_.SetTarget(nullptr);
        target.reset();
        const std::wstring reason = DevTools::LastStartError();
        if (events_) BreakDown(reason.empty() ? L"The page could not be opened." : reason);
    }
    connecting_ = false;
    return target_ != nullptr;
}

void Page::BreakDown(const std::wstring& notice) {
    broken_ = true;
    loading_ = false;
    bridge_.reset();
    view_.SetTarget(nullptr);
    view_.SetNotice(notice + kRetry);
    // Only the page would show its window.
    const HWND root = GetAncestor(window_, GA_ROOT);
    if (!IsWindowVisible(root)) ShowWindow(root, SW_SHOWNORMAL);
    target_.reset();
}

void Page::Close() {
    const auto self = shared_from_this();
    events_ = nullptr;
    bridge_.reset();
    view_.SetTarget(nullptr);
    target_.reset();
}

void Page::Reload() {
    if (broken_) return Navigate(location_.empty() ? wanted_ : location_);
    if (target_) target_->Post("Page.reload");
}

void Page::Stop() {
    if (target_) target_->Post("Page.stopLoading");
}

void Page::Travel(int steps) {
    if (!target_) return;
    target_->Post(
        "Page.getNavigationHistory", Json::object(), [weak = weak_from_this(), steps](const Json* history) {
            const auto page = weak.lock();
            if (!history || !page || !page->target_) return;
            const int index = history->value("currentIndex", 0) + steps;
            const Json& entries = history->at("entries");
            if (index < 0 || index >= static_cast<int>(entries.size())) return;
            page->target_->Post("Page.navigateToHistoryEntry", {{"entryId", entries[index].at("id")}});
        });
}

ComPtr<IDispatch> Page::Globals() {
    if (const auto world = World()) return world->Window();
    return staged_;
}

void Page::ListenToMouse() {
    if (const auto world = World()) world->ListenToMouse();
}

void Page::ShowEditMenu(POINT screen) {
    view_.ShowEditMenu(screen);
}

void Page::AllowScript(bool allowed) {
    if (!target_ || std::exchange(scriptAllowed_, allowed) == allowed) return;
    target_->Post("Emulation.setScriptExecutionDisabled", {{"value", !allowed}});
}

bool Page::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto self = shared_from_this();
    if (broken_ && message == WM_LBUTTONUP) Reload();
    return view_.HandleMessage(message, wParam, lParam, result);
}

// The document's first script waits for this: what native code puts into the page now is there for it.
void Page::OnDocumentStart() {
    const auto self = shared_from_this();
    const auto world = World();
    if (!events_ || !world) return;
    started_ = true;
    world->SetExternal(events_->GetExternal().Get());
    ApplyStagedGlobals(*world);
    Tell(&PageEvents::OnNavigateComplete, location_, true);
}

void Page::ApplyStagedGlobals(ScriptWorld& world) {
    for (const auto& [name, value] : staged_->Take()) {
        world.Run({.name = "set", .member = ScriptText(name), .arguments = world.Write(value)});
    }
}

}  // namespace tarvik
