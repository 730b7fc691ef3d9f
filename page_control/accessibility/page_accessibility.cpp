#include "page_control/accessibility/page_accessibility.h"

#include <algorithm>
#include <utility>

#include "base/module_function.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

using Change = AccessibilityTree::Change;

constexpr UINT_PTR kLoadTimer = 1;
// Changes often come in groups.
constexpr ULONGLONG kDelay = 30;  // milliseconds
// An animated page changes all the time; loading must not take more than a third of it.
constexpr ULONGLONG kRest = 2;  // times the duration of the last load
constexpr ULONGLONG kMaxRest = 2000;
// EVENT_OBJECT_LIVEREGIONCHANGED, of Windows 8 and later.
constexpr DWORD kLiveRegionChanged = 0x8019;
// More are replaced by one event for the whole page.
constexpr size_t kMaxEvents = 200;

DWORD EventOf(Change::Type type) {
    switch (type) {
        case Change::Type::kChildren:
            return EVENT_OBJECT_REORDER;
        case Change::Type::kName:
            return EVENT_OBJECT_NAMECHANGE;
        case Change::Type::kValue:
            return EVENT_OBJECT_VALUECHANGE;
        case Change::Type::kDescription:
            return EVENT_OBJECT_DESCRIPTIONCHANGE;
        case Change::Type::kState:
            return EVENT_OBJECT_STATECHANGE;
        case Change::Type::kSelection:
            return EVENT_OBJECT_SELECTION;
        case Change::Type::kAlert:
            return EVENT_SYSTEM_ALERT;
        case Change::Type::kLiveRegion:
            return kLiveRegionChanged;
        case Change::Type::kFocus:
            break;
    }
    return EVENT_OBJECT_FOCUS;
}

// Loaded on demand, for the few programs that a client asks.
LRESULT ToLresult(WPARAM wParam, IUnknown* object) {
    static const auto convert = FindFunction<decltype(LresultFromObject)>(L"oleacc.dll", "LresultFromObject");
    return convert ? convert(__uuidof(IAccessible), wParam, object) : 0;
}

}  // namespace

PageAccessibility::PageAccessibility(HWND window, PageTarget& target, NodeActions::Queue queue)
    : target_(target),
      actions_(target, std::move(queue)),
      loader_(target),
      page_(std::make_shared<AccessiblePage>(AccessiblePage{window, &actions_, {}, {}})) {}

PageAccessibility::~PageAccessibility() {
    page_->actions = nullptr;
    page_->tree.Clear();
    loader_.Reset();
}

bool PageAccessibility::OnGetObject(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (static_cast<LONG>(lParam) != OBJID_CLIENT) return false;
    Start();
    *result = ToLresult(wParam, AccessibleObject::Of(page_, AccessibilityTree::kRoot)->AsUnknown());
    return true;
}

void PageAccessibility::Start() {
    if (timer_) return;
    timer_.emplace([this](UINT message, WPARAM timer) {
        if (message == WM_TIMER && timer == kLoadTimer) Load();
    });
    EventRouter& events = target_.Events();
    subscriptions_.push_back(events.Subscribe<event::NodesUpdated>([this](const auto&) { OnChange(); }));
    subscriptions_.push_back(
        events.Subscribe<event::ContextsCleared>([this](const auto&) { OnNewDocument(); }));
    target_.Post("Accessibility.enable");
    Load();
}

void PageAccessibility::OnChange() {
    if (!timer_ || std::exchange(isStale_, true) || isLoading_ || isScheduled_) return;
    isScheduled_ = true;
    const ULONGLONG now = GetTickCount64();
    const ULONGLONG delay = std::max(kDelay, nextLoad_ > now ? nextLoad_ - now : 0);
    SetTimer(timer_->Get(), kLoadTimer, static_cast<UINT>(delay), nullptr);
}

void PageAccessibility::OnFocus() {
    isFocusNew_ = true;
    OnChange();
}

void PageAccessibility::Load() {
    KillTimer(timer_->Get(), kLoadTimer);
    isScheduled_ = false;
    isStale_ = false;
    isLoading_ = true;
    loadStart_ = GetTickCount64();
    loader_.Load([this](const PageSnapshot* snapshot) { OnLoaded(snapshot); });
}

void PageAccessibility::OnLoaded(const PageSnapshot* snapshot) {
    const ULONGLONG now = GetTickCount64();
    nextLoad_ = now + std::min(kRest * (now - loadStart_), kMaxRest);
    isLoading_ = false;
    if (std::exchange(isStale_, false)) OnChange();
    if (!snapshot) return;
    auto changes = page_->tree.Replace(BuildTree(*snapshot, page_->tree));
    const Change focus = {Change::Type::kFocus, page_->tree.Focus()};
    if (std::exchange(isFocusNew_, false) && (changes.empty() || changes.back() != focus))
        changes.push_back(focus);
    Notify(changes);
}

void PageAccessibility::OnNewDocument() {
    loader_.Reset();
    page_->tree.Clear();
    isLoading_ = false;
    isStale_ = false;
    OnChange();
}

// A client in this process may close the page.
void PageAccessibility::Notify(const std::vector<Change>& changes) {
    const auto page = page_;
    const bool isBig = changes.size() > kMaxEvents;
    if (isBig) Notify(EVENT_OBJECT_REORDER, AccessibilityTree::kRoot);
    for (const Change& change : changes) {
        if (!page->actions) return;
        const bool isShown = change.type == Change::Type::kFocus
                                 ? GetFocus() == page->window
                                 : !isBig || change.type >= Change::Type::kAlert;
        if (isShown) Notify(EventOf(change.type), change.node);
    }
}

// The object's number as a child of the window's object; see AccessibleObject.
void PageAccessibility::Notify(DWORD event, int node) const {
    NotifyWinEvent(event, page_->window, OBJID_CLIENT, -node);
}

}  // namespace tarvik
