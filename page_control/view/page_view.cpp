#include "page_control/view/page_view.h"

#include "page_control/view/clipboard.h"
#include "page_control/view/cursor.h"
#include "page_control/view/edit_menu.h"
#include "page_control/view/input_queue.h"
#include "page_control/view/keyboard_input.h"
#include "page_control/view/mouse_input.h"
#include "page_control/view/placement.h"
#include "page_control/view/screencast.h"
#include "page_control/view/view_script.h"
#include "page_control/view/window_numbers.h"

namespace tarvik {

struct PageView::TargetView {
    TargetView(HWND window, PageTarget& page, FrameBuffer& frameBuffer, bool textIsSelectable,
               ViewScript::EventHandler onEvent)
        : target(page),
          script(page, textIsSelectable, std::move(onEvent)),
          placement(window, page),
          queue(page, script),
          mouse(window, queue),
          keyboard(window, queue, script),
          cursor(window, script),
          screencast(window, page, frameBuffer) {}

    PageTarget& target;
    ViewScript script;
    Placement placement;
    InputQueue queue;
    MouseInput mouse;
    KeyboardInput keyboard;
    PageCursor cursor;
    Screencast screencast;
};

PageView::PageView(HWND window, Options options) : window_(window), options_(std::move(options)) {}

PageView::~PageView() = default;

void PageView::SetTarget(PageTarget* target) {
    targetView_.reset();
    frameBuffer_.Clear();
    if (target) {
        SetNotice({});
        const auto onEvent = [this](const ViewScript::PageEvent& event) {
            const bool isCopy = event.type == ViewScript::PageEvent::Type::kCopied;
            isCopy ? CopyToClipboard(window_, event.text) : options_.onNewWindow(event.text);
        };
        targetView_ =
            std::make_shared<TargetView>(window_, *target, frameBuffer_, options_.textIsSelectable, onEvent);
        ForwardFocus();
    }
    InvalidateRect(window_, nullptr, FALSE);
}

// Screen readers read the window's text.
void PageView::SetNotice(const std::wstring& text) {
    notice_ = text;
    SetWindowTextW(window_, text.c_str());
    InvalidateRect(window_, nullptr, FALSE);
}

void PageView::SetInNativeCall(bool inCall) {
    if (targetView_) targetView_->queue.SetInNativeCall(inCall);
}

bool PageView::IsMouseHeld() const {
    return targetView_ && targetView_->mouse.IsHeld();
}

void PageView::OpenEditMenu(POINT screen) {
    if (!targetView_) return;
    targetView_->script.Call("hasSelection", "",
                             [this, view = std::weak_ptr(targetView_), screen](const Json& result) {
                                 if (!view.expired()) RunEditMenu(screen, result == true);
                             });
}

// The page, and this view with it, may be destroyed while the menu is open.
void PageView::RunEditMenu(POINT screen, bool hasSelection) {
    const std::weak_ptr<TargetView> before = targetView_;
    const EditCommand command = ShowEditMenu(window_, screen, hasSelection);
    const auto view = before.lock();
    if (!view || command == EditCommand::kNone) return;
    if (command == EditCommand::kPaste) QueueClipboardText(window_, view->queue, view->script);
    // The engine runs an editing command as part of a key event, here one without a key.
    view->queue.Add(InputQueue::DeliveryMode::kAwaitReceipt, "Input.dispatchKeyEvent",
                    {{"type", "rawKeyDown"}, {"commands", {EditCommandName(command)}}});
}

// The headless engine's own windows never lose the focus.
void PageView::ForwardFocus() {
    targetView_->target.Post("Emulation.setFocusEmulationEnabled", {{"enabled", GetFocus() == window_}});
}

void PageView::Paint() {
    PAINTSTRUCT paint;
    const HDC target = BeginPaint(window_, &paint);
    RECT area = {};
    GetClientRect(window_, &area);
    if (notice_.empty()) {
        frameBuffer_.Paint(target, area);
    } else {
        PaintNotice(target, area, notice_);
    }
    EndPaint(window_, &paint);
    if (targetView_) targetView_->screencast.EnsureRunning();
}

bool PageView::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    *result = 0;
    switch (message) {
        case WM_PAINT:
            Paint();
            return true;
        case WM_ERASEBKGND:
            *result = 1;
            return true;  // WM_PAINT covers everything
        case WM_SIZE:
            // A notice is centred in the window.
            if (!notice_.empty()) InvalidateRect(window_, nullptr, FALSE);
            break;
        case WM_GETDLGCODE:
            *result = DLGC_WANTALLKEYS;
            return true;
        default:
            break;
    }
    return targetView_ && HandlePageMessage(message, wParam, lParam, result);
}

bool PageView::HandlePageMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    TargetView& view = *targetView_;
    switch (message) {
        case kFrameMessage:
            view.screencast.OnFrame();
            view.cursor.Refresh();
            return true;
        case WM_TIMER:
            if (wParam == kCursorTimer) view.cursor.OnTimer();
            if (wParam == kFrameTimer) view.screencast.OnTimer();
            return wParam == kCursorTimer || wParam == kFrameTimer;
        case WM_SIZE:
            view.screencast.ExpectResize();
            [[fallthrough]];
        case WM_MOVE:
            view.placement.Update();
            return false;
        case WM_SETCURSOR:
            if (LOWORD(lParam) != HTCLIENT) return false;
            SetCursor(view.cursor.Current());
            *result = TRUE;
            return true;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            ForwardFocus();
            return false;
        default:
            return HandleInput(message, wParam, lParam, result);
    }
}

bool PageView::HandleInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const std::weak_ptr<TargetView> before = targetView_;
    if (MouseInput::IsPress(message)) SetFocus(window_);
    // A blur handler may close this page.
    if (before.expired()) return true;
    TargetView& view = *targetView_;
    if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) view.placement.Update();
    if (!view.mouse.HandleMessage(message, wParam, lParam))
        return view.keyboard.HandleMessage(message, wParam, lParam);
    view.cursor.SetPosition(view.mouse.LastPoint());
    // Messages of the X buttons return TRUE.
    *result = message >= WM_XBUTTONDOWN && message <= WM_XBUTTONDBLCLK;
    return true;
}

}  // namespace tarvik
