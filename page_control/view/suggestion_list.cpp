#include "page_control/view/suggestion_list.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "page_control/view/message_font.h"
#include "page_control/view/monitor.h"

namespace tarvik {

namespace {

constexpr int kMostRows = 10;

LONG WidthOf(HDC context, const std::wstring& text) {
    SIZE size = {};
    GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}

}  // namespace

SuggestionList::SuggestionList(HWND page, std::function<void(int)> onClick)
    : page_(page), onClick_(std::move(onClick)) {}

void SuggestionList::Show(const RECT& field, const std::vector<Row>& rows, int selected) {
    if (!list_) {
        font_ = MessageFont(page_, 1);
        list_.Reset(CreateWindowExW(
            WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, WC_LISTBOXW, L"",
            WS_POPUP | WS_BORDER | WS_VSCROLL | LBS_USETABSTOPS | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT, 0, 0,
            0, 0, page_, nullptr, GetModuleHandleW(nullptr), nullptr));
        SetWindowSubclass(list_.Get(), Procedure, 0, reinterpret_cast<DWORD_PTR>(this));
        Send(WM_SETFONT, reinterpret_cast<WPARAM>(font_.Get()));
    }
    GetCursorPos(&pointer_);
    const SIZE content = Fill(rows);
    Send(LB_SETCURSEL, static_cast<WPARAM>(selected));
    const RECT monitor = MonitorOf(page_);
    const LONG width = std::min(std::max(content.cx, field.right - field.left), monitor.right - monitor.left);
    const LONG left = std::clamp(field.left, monitor.left, monitor.right - width);
    const bool fitsBelow = field.bottom + content.cy <= monitor.bottom;
    const LONG top = fitsBelow ? field.bottom : std::max(monitor.top, field.top - content.cy);
    SetWindowPos(list_.Get(), HWND_TOPMOST, left, top, width, content.cy, SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

// Returns the size of the window that shows the rows, or as many as are shown at a time.
SIZE SuggestionList::Fill(const std::vector<Row>& rows) {
    const HDC context = GetDC(list_.Get());
    const HGDIOBJ before = SelectObject(context, font_.Get());
    constexpr const wchar_t* kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const LONG letter = std::max<LONG>(1, WidthOf(context, kLetters) / 52);
    LONG texts = 0, labels = 0;
    Send(WM_SETREDRAW, FALSE);
    Send(LB_RESETCONTENT);
    for (const auto& [text, label] : rows) {
        texts = std::max(texts, WidthOf(context, text));
        labels = std::max(labels, WidthOf(context, label));
        const std::wstring line = label.empty() ? text : text + L'\t' + label;
        Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    }
    SelectObject(context, before);
    ReleaseDC(list_.Get(), context);
    UINT stop = static_cast<UINT>(texts / letter + 3) * 4;  // in quarters of a letter
    Send(LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&stop));
    Send(WM_SETREDRAW, TRUE);
    InvalidateRect(list_.Get(), nullptr, TRUE);
    const auto row = static_cast<LONG>(Send(LB_GETITEMHEIGHT));
    const LONG width = labels ? static_cast<LONG>(stop / 4) * letter + labels : texts;
    return {
        width + 2 * letter + GetSystemMetrics(SM_CXVSCROLL),
        row * std::min<LONG>(kMostRows, static_cast<LONG>(rows.size())) + 2 * GetSystemMetrics(SM_CYBORDER)};
}

int SuggestionList::Selected() const {
    return list_ ? static_cast<int>(Send(LB_GETCURSEL)) : -1;
}

void SuggestionList::Move(WPARAM key) {
    const auto count = static_cast<int>(Send(LB_GETCOUNT));
    const int selected = Selected();
    const int last = count - 1;
    const int next = key == VK_DOWN   ? (selected + 1) % count
                     : key == VK_UP   ? (selected > 0 ? selected - 1 : last)
                     : key == VK_NEXT ? last
                                      : 0;
    Send(LB_SETCURSEL, static_cast<WPARAM>(next));
}

int SuggestionList::RowAt(LPARAM position) const {
    const LRESULT row = Send(LB_ITEMFROMPOINT, 0, position);
    return HIWORD(row) ? -1 : LOWORD(row);
}

// A list that comes under the pointer keeps its selection.
void SuggestionList::OnMouseMove(LPARAM position) {
    POINT pointer = {};
    GetCursorPos(&pointer);
    if (pointer.x == pointer_.x && pointer.y == pointer_.y) return;
    const int row = RowAt(position);
    if (row >= 0 && row != Selected()) Send(LB_SETCURSEL, static_cast<WPARAM>(row));
}

// A click destroys the list.
LRESULT CALLBACK SuggestionList::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                           DWORD_PTR object) {
    auto* const self = reinterpret_cast<SuggestionList*>(object);
    switch (message) {
        case WM_MOUSEACTIVATE:
            return MA_NOACTIVATE;
        case WM_MOUSEMOVE:
            self->OnMouseMove(lParam);
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            return 0;
        case WM_LBUTTONUP: {
            const int row = self->RowAt(lParam);
            if (row >= 0) self->onClick_(row);
            return 0;
        }
        default:
            return DefSubclassProc(window, message, wParam, lParam);
    }
}

}  // namespace tarvik
