#include "page_control/view/notice.h"

#include <windowsx.h>

#include <algorithm>

#include "page_control/view/message_font.h"

namespace tarvik {

namespace {

constexpr COLORREF kBackground = RGB(245, 247, 249);
constexpr COLORREF kText = RGB(70, 84, 99);
constexpr COLORREF kButton = RGB(255, 255, 255);
constexpr COLORREF kFocusedButton = RGB(25, 95, 180);
constexpr UINT kTextFormat = DT_CENTER | DT_WORDBREAK | DT_NOPREFIX;
constexpr UINT kLabelFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX;

// Prepares a device context for text. Restores it at the end.
class TextContext {
  public:
    explicit TextContext(HDC target) : target_(target), font_(MessageFont(WindowFromDC(target), 1.25)) {
        before_ = SelectObject(target, font_.Get());
        SetBkMode(target, TRANSPARENT);
        GetTextMetricsW(target, &metrics_);
    }
    ~TextContext() { SelectObject(target_, before_); }
    TextContext(const TextContext&) = delete;
    TextContext& operator=(const TextContext&) = delete;

    LONG LineHeight() const { return metrics_.tmHeight; }

  private:
    HDC target_;
    UniqueGdi font_;
    HGDIOBJ before_;
    TEXTMETRICW metrics_ = {};
};

void Fill(HDC target, const RECT& area, COLORREF colour) {
    SetDCBrushColor(target, colour);
    FillRect(target, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void PaintText(HDC target, const std::wstring& text, RECT area, UINT format, COLORREF colour) {
    SetTextColor(target, colour);
    DrawTextW(target, text.c_str(), -1, &area, format);
}

}  // namespace

void Notice::Show(const std::wstring& text, std::vector<Button> buttons) {
    text_ = text;
    buttons_ = std::move(buttons);
    focus_ = 0;
    held_ = kNone;
    // Screen readers read the window's text.
    std::wstring all = text;
    for (const Button& button : buttons_)
        all += L"\n[" + button.label + L"]";
    SetWindowTextW(window_, all.c_str());
    Repaint();
}

void Notice::Hide() {
    if (IsShown()) Show({}, {});
}

// The text is in the middle of the window, and the buttons are below it, in a row or, if that is too narrow,
// in a column.
Notice::Layout Notice::Arrange(HDC target) const {
    const TextContext context(target);
    const LONG line = context.LineHeight(), height = line * 2, gap = line / 2;
    RECT area = {};
    GetClientRect(window_, &area);
    InflateRect(&area, -line, 0);
    RECT text = area;
    DrawTextW(target, text_.c_str(), -1, &text, kTextFormat | DT_CALCRECT);
    std::vector<LONG> widths;
    LONG row = -gap;
    for (const Button& button : buttons_) {
        SIZE size = {};
        GetTextExtentPoint32W(target, button.label.c_str(), static_cast<int>(button.label.size()), &size);
        widths.push_back(size.cx + 2 * line);
        row += widths.back() + gap;
    }
    const bool isRow = row <= area.right - area.left;
    const LONG rows = isRow ? 1 : static_cast<LONG>(buttons_.size());
    const LONG all = text.bottom - text.top + line + rows * height + (rows - 1) * gap;
    Layout layout = {area, {}};
    layout.text.top = std::max<LONG>(0, (area.bottom - all) / 2);
    layout.text.bottom = layout.text.top + text.bottom - text.top;
    LONG top = layout.text.bottom + line, left = (area.left + area.right - row) / 2;
    for (const LONG width : widths) {
        if (!isRow) left = (area.left + area.right - width) / 2;
        layout.buttons.push_back({left, top, left + width, top + height});
        (isRow ? left : top) += (isRow ? width : height) + gap;
    }
    return layout;
}

void Notice::Paint(HDC target) const {
    const Layout layout = Arrange(target);
    const TextContext context(target);
    RECT area = {};
    GetClientRect(window_, &area);
    Fill(target, area, kBackground);
    PaintText(target, text_, layout.text, kTextFormat, kText);
    for (size_t i = 0; i < buttons_.size(); ++i) {
        const bool isFocused = i == focus_;
        RECT button = layout.buttons[i];
        Fill(target, button, isFocused ? kFocusedButton : kButton);
        SetDCBrushColor(target, kFocusedButton);
        FrameRect(target, &button, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        if (i == held_) OffsetRect(&button, 1, 1);
        PaintText(target, buttons_[i].label, button, kLabelFormat, isFocused ? kButton : kFocusedButton);
    }
}

bool Notice::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (!IsShown()) return false;
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            SetFocus(window_);
            held_ = ButtonAt(lParam);
            if (held_ != kNone) Focus(held_);
            SetCapture(window_);
            return true;
        case WM_LBUTTONUP:
            OnRelease(lParam);
            return true;
        case WM_CAPTURECHANGED:
            held_ = kNone;
            Repaint();
            return false;
        case WM_SETCURSOR:
            if (LOWORD(lParam) != HTCLIENT) return false;
            SetCursor(LoadCursorW(nullptr, IDC_ARROW));
            *result = TRUE;
            return true;
        case WM_KEYDOWN:
            OnKey(wParam, (lParam & (1 << 30)) != 0);
            return true;
        case WM_KEYUP:
        case WM_CHAR:
            return true;
        case WM_SIZE:
            Repaint();
            return false;
        default:
            return message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
    }
}

size_t Notice::ButtonAt(LPARAM position) const {
    const HDC target = GetDC(window_);
    const Layout layout = Arrange(target);
    ReleaseDC(window_, target);
    const auto found = std::ranges::find_if(layout.buttons, [&](const RECT& button) {
        return PtInRect(&button, {GET_X_LPARAM(position), GET_Y_LPARAM(position)});
    });
    return found == layout.buttons.end() ? kNone : static_cast<size_t>(found - layout.buttons.begin());
}

void Notice::OnRelease(LPARAM position) {
    const size_t button = held_;
    ReleaseCapture();
    if (button != kNone && button == ButtonAt(position)) Press(button);
}

// A key that is still held was meant for the page.
void Notice::OnKey(WPARAM key, bool isRepeat) {
    const size_t count = buttons_.size();
    const bool isBack = key == VK_LEFT || key == VK_UP || (key == VK_TAB && GetKeyState(VK_SHIFT) < 0);
    if (isBack)
        Focus((focus_ + count - 1) % count);
    else if (key == VK_TAB || key == VK_RIGHT || key == VK_DOWN)
        Focus((focus_ + 1) % count);
    else if ((key == VK_RETURN || key == VK_SPACE) && !isRepeat)
        Press(focus_);
}

void Notice::Focus(size_t button) {
    focus_ = button;
    Repaint();
}

void Notice::Press(size_t button) {
    const auto onPress = buttons_.at(button).onPress;
    onPress();
}

}  // namespace tarvik
