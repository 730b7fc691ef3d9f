#include "control/page/page.h"

#include <map>

#include "base/status.h"
#include "base/text.h"
#include "control/bridge/script_source.h"
#include "control/engine/engine_address.h"

namespace tarvik {

namespace {

constexpr const wchar_t* kRetry = L"\n\nClick here to try again.";

}  // namespace

void Page::Navigate(const std::wstring& address) {
    wanted_ = address;
    if (!target_ && !Connect()) return;
    loading_ = true;
    target_->Post("Page.navigate", {{"url", EngineAddress(address)}});
}

// Starts the engine, if no other page has, and opens a target in it.
bool Page::Connect() {
    const auto self = shared_from_this();
    try {
        target_ = std::make_unique<PageTarget>(DevTools::Acquire());
        target_->Engine().Listen(target_->Session(),
                                 [weak = weak_from_this()](std::string_view method, const Json& params) {
                                     if (const auto page = weak.lock()) page->OnEvent(method, params);
                                 });
        target_->Post("Page.enable");
        target_->Post("Inspector.enable");
        target_->Post("Fetch.enable", {{"patterns", {{{"urlPattern", "*"}, {"resourceType", "Document"}}}}});
        view_.SetTarget(target_.get());
        bridge_ = std::make_unique<ScriptBridge>(*target_, *this);
        broken_ = false;
    } catch (const std::exception&) {
        const std::wstring reason = DevTools::LastStartError();
        BreakDown(reason.empty() ? L"The page could not be opened." : reason);
    }
    return !broken_ && events_;
}

void Page::BreakDown(const std::wstring& notice) {
    broken_ = true;
    loading_ = false;
    bridge_.reset();
    view_.SetTarget(nullptr);
    view_.SetNotice(notice + kRetry);
    // Only the page would show its window.
    ShowWindow(GetAncestor(window_, GA_ROOT), SW_SHOWNORMAL);
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

void Page::DisableScript() {
    if (target_) target_->Post("Emulation.setScriptExecutionDisabled", {{"value", true}});
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
