#include "control/view/page_view.h"

#include "control/view/cursor.h"
#include "control/view/keyboard_input.h"
#include "control/view/mouse_input.h"
#include "control/view/screencast.h"

namespace tarvik {

namespace {

// Frames hold what the page draws itself; drop-down lists of the platform's kind are missing from them, so
// pages draw their own.
constexpr const char* kDrawnByPage = R"((() => {
  const sheet = new CSSStyleSheet();
  sheet.replaceSync('select:not([multiple]):not([size]), ::picker(select) { appearance: base-select; }');
  document.adoptedStyleSheets.push(sheet);
})())";

}  // namespace

struct PageView::Shown {
    Shown(HWND window, PageTarget& page, Picture& picture)
        : target(page),
          mouse(window, page),
          keyboard(window, page),
          cursor(window, page),
          screencast(window, page, picture) {}

    PageTarget& target;
    MouseInput mouse;
    KeyboardInput keyboard;
    PageCursor cursor;
    Screencast screencast;
};

PageView::PageView(HWND window) : window_(window) {}

PageView::~PageView() = default;

void PageView::SetTarget(PageTarget* target) {
    shown_.reset();
    parked_ = false;
    picture_.Clear();
    if (target) {
        notice_.clear();
        target->Post("Page.addScriptToEvaluateOnNewDocument", {{"source", kDrawnByPage}});
        shown_ = std::make_unique<Shown>(window_, *target, picture_);
        FitPage();
    }
    InvalidateRect(window_, nullptr, FALSE);
}

void PageView::SetNotice(const std::wstring& text) {
    notice_ = text;
    InvalidateRect(window_, nullptr, FALSE);
}

void PageView::SetParked(bool parked) {
    if (parked_ == parked) return;
    parked_ = parked;
    // Input that was under way when the page stopped gets its answer late or never.
    if (!shown_) return;
    shown_->mouse.Reset();
    shown_->cursor.Reset();
}

void PageView::FitPage() {
    RECT area = {};
    GetClientRect(window_, &area);
    if (shown_) shown_->screencast.SetSize({area.right, area.bottom});
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
            FitPage();
            return false;
        case WM_GETDLGCODE:
            *result = DLGC_WANTALLKEYS;
            return true;
        case Screencast::kFrameMessage:
            if (shown_) shown_->screencast.OnFrame();
            return true;
        case WM_SETCURSOR:
            if (!shown_ || LOWORD(lParam) != HTCLIENT) return false;
            SetCursor(shown_->cursor.Current());
            *result = TRUE;
            return true;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            if (shown_) {
                shown_->target.Post("Emulation.setFocusEmulationEnabled",
                                    {{"enabled", message == WM_SETFOCUS}});
            }
            return false;
        default:
            break;
    }
    if (!shown_ || parked_) return false;
    if (shown_->mouse.HandleMessage(message, wParam, lParam)) {
        shown_->cursor.Ask(shown_->mouse.LastPoint());
        return true;
    }
    return shown_->keyboard.HandleMessage(message, wParam, lParam);
}

}  // namespace tarvik
