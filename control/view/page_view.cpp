#include "control/view/page_view.h"

#include "control/view/clipboard.h"
#include "control/view/cursor.h"
#include "control/view/edit_menu.h"
#include "control/view/input_queue.h"
#include "control/view/keyboard_input.h"
#include "control/view/mouse_input.h"
#include "control/view/page_side.h"
#include "control/view/placement.h"
#include "control/view/screencast.h"

namespace tarvik {

struct PageView::Shown {
    Shown(HWND window, PageTarget& page, Picture& picture, bool textIsSelectable)
        : target(page),
          side(page, textIsSelectable),
          placement(window, page),
          queue(page, side),
          mouse(window, queue),
          keyboard(window, queue, side),
          cursor(window, side),
          screencast(window, page, picture) {}

    PageTarget& target;
    PageSide side;
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
    shown_.reset();
    picture_.Clear();
    if (target) {
        SetNotice({});
        shown_ = std::make_shared<Shown>(window_, *target, picture_, options_.textIsSelectable);
        TellFocus();
    }
    InvalidateRect(window_, nullptr, FALSE);
}

// Readers of the screen find it as the window's text.
void PageView::SetNotice(const std::wstring& text) {
    notice_ = text;
    SetWindowTextW(window_, text.c_str());
    InvalidateRect(window_, nullptr, FALSE);
}

void PageView::SetParked(bool parked) {
    if (shown_) shown_->queue.SetParked(parked);
}

bool PageView::IsMouseHeld() const {
    return shown_ && shown_->mouse.IsHeld();
}

void PageView::OnEvent(std::string_view method, const Json& params) {
    if (!shown_) return;
    shown_->queue.OnEvent(method);
    const auto word = shown_->side.Hear(method, params);
    if (!word) return;
    if (word->kind == PageSide::Word::Kind::kCopied)
        PutOnClipboard(window_, word->text);
    else
        options_.onNewWindow(word->text);
}

void PageView::ShowEditMenu(POINT screen) {
    if (!shown_) return;
    shown_->side.Ask("hasSelection", "", [this, shown = std::weak_ptr(shown_), screen](const Json& answer) {
        if (!shown.expired()) RunEditMenu(screen, answer == true);
    });
}

// The page may go while the menu is open, and this view with it.
void PageView::RunEditMenu(POINT screen, bool hasSelection) {
    const std::weak_ptr<Shown> before = shown_;
    const EditCommand command = PickEditCommand(window_, screen, hasSelection);
    const auto shown = before.lock();
    if (!shown || command == EditCommand::kNone) return;
    if (command == EditCommand::kPaste) BringClipboard(window_, shown->queue, shown->side);
    // The engine runs editing commands with a key event that means nothing else.
    shown->queue.Add(InputQueue::Care::kSeen, "Input.dispatchKeyEvent",
                     {{"type", "rawKeyDown"}, {"commands", {EditCommandName(command)}}});
}

// The engine has a desktop of its own, on which no window is ever left.
void PageView::TellFocus() {
    shown_->target.Post("Emulation.setFocusEmulationEnabled", {{"enabled", GetFocus() == window_}});
}

void PageView::Paint() {
    PAINTSTRUCT paint;
    const HDC target = BeginPaint(window_, &paint);
    RECT area = {};
    GetClientRect(window_, &area);
    if (notice_.empty()) {
        picture_.Paint(target, area);
    } else {
        PaintNotice(target, area, notice_);
    }
    EndPaint(window_, &paint);
    if (shown_) shown_->screencast.Want();
}

bool PageView::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    *result = 0;
    switch (message) {
        case WM_PAINT:
            Paint();
            return true;
        case WM_ERASEBKGND:
            *result = 1;
            return true;  // painting covers everything
        case WM_SIZE:
            // A notice stands in the middle of the whole.
            if (!notice_.empty()) InvalidateRect(window_, nullptr, FALSE);
            break;
        case WM_GETDLGCODE:
            *result = DLGC_WANTALLKEYS;
            return true;
        default:
            break;
    }
    return shown_ && HandlePageMessage(message, wParam, lParam, result);
}

bool PageView::HandlePageMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    Shown& shown = *shown_;
    switch (message) {
        case Screencast::kFrameMessage:
            shown.screencast.OnFrame();
            shown.cursor.Renew();
            return true;
        case WM_TIMER:
            if (wParam == PageCursor::kTimer) shown.cursor.OnTimer();
            if (wParam == Screencast::kTimer) shown.screencast.OnTimer();
            return wParam == PageCursor::kTimer || wParam == Screencast::kTimer;
        case WM_SIZE:
            shown.screencast.ExpectChange();
            [[fallthrough]];
        case WM_MOVE:
            shown.placement.Update();
            return false;
        case WM_SETCURSOR:
            if (LOWORD(lParam) != HTCLIENT) return false;
            SetCursor(shown.cursor.Current());
            *result = TRUE;
            return true;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            TellFocus();
            return false;
        default:
            return HandleInput(message, wParam, lParam, result);
    }
}

bool PageView::HandleInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const std::weak_ptr<Shown> before = shown_;
    if (MouseInput::IsPress(message)) SetFocus(window_);
    // Who loses the focus may do as he likes, also close this page.
    if (before.expired()) return true;
    Shown& shown = *shown_;
    if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) shown.placement.Update();
    if (!shown.mouse.HandleMessage(message, wParam, lParam))
        return shown.keyboard.HandleMessage(message, wParam, lParam);
    shown.cursor.Follow(shown.mouse.LastPoint());
    // The buttons at the side have an answer of their own.
    *result = message >= WM_XBUTTONDOWN && message <= WM_XBUTTONDBLCLK;
    return true;
}

}  // namespace tarvik
