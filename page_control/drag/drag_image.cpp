#include "page_control/drag/drag_image.h"

#include <cstring>

#include "base/wine.h"

namespace tarvik {

namespace {

// Without a desktop composition, translucency would only darken the picture.
BYTE Opacity() {
    return IsWine() ? 255 : 170;
}

POINT Pointer() {
    POINT point = {};
    GetCursorPos(&point);
    return point;
}

void Fill(HWND window, const Pixels& pixels) {
    BITMAPINFO format = {};
    format.bmiHeader = {sizeof format.bmiHeader, pixels.width, -pixels.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const UniqueGdi bitmap(CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap) return;
    std::memcpy(bits, pixels.colors.data(), pixels.colors.size() * sizeof pixels.colors[0]);
    const HDC source = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(source, bitmap.Get());
    SIZE size = {pixels.width, pixels.height};
    POINT origin = {};
    BLENDFUNCTION blend = {AC_SRC_OVER, 0, Opacity(), AC_SRC_ALPHA};
    UpdateLayeredWindow(window, nullptr, nullptr, &size, source, &origin, 0, &blend, ULW_ALPHA);
    SelectObject(source, before);
    DeleteDC(source);
}

}  // namespace

DragImage::DragImage(const Pixels& pixels, POINT hotSpot) : hotSpot_(hotSpot) {
    if (pixels.colors.empty()) return;
    constexpr DWORD kStyle =
        WS_EX_LAYERED | WS_EX_TRANSPARENT | WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
    const POINT pointer = Pointer();
    window_ = UniqueWindow(CreateWindowExW(kStyle, L"STATIC", L"", WS_POPUP, pointer.x - hotSpot.x,
                                           pointer.y - hotSpot.y, pixels.width, pixels.height, nullptr,
                                           nullptr, nullptr, nullptr));
    if (!window_) return;
    Fill(window_.Get(), pixels);
    ShowWindow(window_.Get(), SW_SHOWNOACTIVATE);
}

void DragImage::Follow() const {
    if (!window_) return;
    const POINT pointer = Pointer();
    SetWindowPos(window_.Get(), HWND_TOPMOST, pointer.x - hotSpot_.x, pointer.y - hotSpot_.y, 0, 0,
                 SWP_NOSIZE | SWP_NOACTIVATE);
}

}  // namespace tarvik
