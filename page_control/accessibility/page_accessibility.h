#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <vector>

#include "page_control/accessibility/accessible_object.h"
#include "page_control/accessibility/node_actions.h"
#include "page_control/accessibility/tree_loader.h"
#include "page_control/engine/message_window.h"

namespace tarvik {

// Shows a page to screen readers: the window's accessible object (Active Accessibility, which Windows also
// offers to clients of UI Automation) and its events. The engine is left alone until a client asks for the
// object. From then on the tree is loaded after changes of the page, and clients get their answers from it,
// also while the page is busy.
class PageAccessibility {
  public:
    PageAccessibility(HWND window, PageTarget& target, NodeActions::Queue queue);
    ~PageAccessibility();
    PageAccessibility(const PageAccessibility&) = delete;
    PageAccessibility& operator=(const PageAccessibility&) = delete;

    // WM_GETOBJECT. False for other objects than the window's content.
    bool OnGetObject(WPARAM wParam, LPARAM lParam, LRESULT* result);

    // The page may have changed.
    void OnChange();
    // The window has got the focus.
    void OnFocus();

  private:
    void Start();
    void Load();
    void OnLoaded(const PageSnapshot* snapshot);
    void OnNewDocument();
    void Notify(const std::vector<AccessibilityTree::Change>& changes);
    void Notify(DWORD event, int node) const;

    PageTarget& target_;
    NodeActions actions_;
    TreeLoader loader_;
    const std::shared_ptr<AccessiblePage> page_;
    std::optional<MessageWindow> timer_;  // since a client has asked
    bool isScheduled_ = false;
    bool isLoading_ = false;
    bool isStale_ = false;  // changed since the load in progress began
    bool isFocusNew_ = false;
    ULONGLONG loadStart_ = 0;
    ULONGLONG nextLoad_ = 0;
    std::vector<EventRouter::Subscription> subscriptions_;
};

}  // namespace tarvik
