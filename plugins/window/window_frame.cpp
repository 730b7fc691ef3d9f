#include "plugins/window/window_frame.h"

#include <shlwapi.h>

#include "plugins/window/image_region.h"

namespace tarvik {

namespace {

constexpr DWORD kFrame = WS_CAPTION | WS_THICKFRAME;
constexpr COLORREF kColorKey = 0x563412;  // unlikely in a page
constexpr UINT kFrameChanged = SWP_NOSIZE | SWP_NOMOVE | SWP_FRAMECHANGED;

}  // namespace

void ChangeWindowStyle(HWND window, DWORD bits, bool on) {
    const LONG style = GetWindowLongW(window, GWL_STYLE);
    const auto changed = static_cast<LONG>(bits);
    SetWindowLongW(window, GWL_STYLE, on ? style | changed : style & ~changed);
}

HRESULT WindowFrame::SetCaption(bool visible) {
    if (shaped_) return E_FAIL;
    ChangeCaption(visible, composition_.IsEnabled() ? FrameType::kComposed : FrameType::kPlain);
    return S_OK;
}

// A composed window keeps the style of its frame, for shadow and animations, and covers the frame with its
// client area.
void WindowFrame::ChangeCaption(bool visible, FrameType type) {
    main_.SetFrameless(type == FrameType::kComposed && !visible);
    if (type != FrameType::kComposed) {
        ChangeWindowStyle(window_, kFrame, visible);
        RedrawFrame();
    }
    if (type == FrameType::kShaped) {
        AddShadow();
    } else {
        ExtendFrame(!visible);
    }
    caption_ = visible;
    SetResizable(resizable_);
    SetWindowPos(window_, nullptr, 0, 0, 0, 0, kFrameChanged);
}

// Changes the size for a moment, so that the system recalculates the frame.
void WindowFrame::RedrawFrame() {
    RECT place = {};
    GetWindowRect(window_, &place);
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    MoveWindow(window_, place.left, place.top, width, height + 1, FALSE);
    MoveWindow(window_, place.left, place.top, width, height, TRUE);
}

void WindowFrame::ExtendFrame(bool hide) {
    if (composition_.IsEnabled()) {
        SetWindowLongW(window_, GWL_EXSTYLE, GetWindowLongW(window_, GWL_EXSTYLE) | WS_EX_LAYERED);
        SetLayeredWindowAttributes(window_, kColorKey, 0, LWA_COLORKEY);
        composition_.ExtendFrame(window_, hide ? 1 : 0);
    } else if (hide) {
        AddShadow();
    }
}

void WindowFrame::AddShadow() {
    const ULONG_PTR style = GetClassLongPtrW(window_, GCL_STYLE);
    SetClassLongPtrW(window_, GCL_STYLE, static_cast<LONG_PTR>(style | CS_DROPSHADOW));
}

HRESULT WindowFrame::SetResizable(bool resizable) {
    if (shaped_) return E_FAIL;
    browser_.SetSizing(!caption_ && resizable);
    ChangeWindowStyle(window_, WS_THICKFRAME, caption_ && resizable);
    resizable_ = resizable;
    return S_OK;
}

HRESULT WindowFrame::ShapeImage(const wchar_t* path) {
    if (!PathFileExistsW(path)) return E_INVALIDARG;
    const UniqueGdi bitmap = LoadBitmapFile(path);
    if (!bitmap) return E_INVALIDARG;
    UniqueGdi region = RegionFromImage(bitmap.Get());
    if (!shaped_) {
        ChangeCaption(false, FrameType::kShaped);
        SetResizable(false);
    }
    const SIZE size = SizeOf(bitmap.Get());
    SetWindowPos(window_, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
    if (SetWindowRgn(window_, static_cast<HRGN>(region.Get()), TRUE)) region.Detach();  // the system owns it
    shaped_ = true;
    return S_OK;
}

}  // namespace tarvik
