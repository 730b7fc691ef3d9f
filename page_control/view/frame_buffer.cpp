#include "page_control/view/frame_buffer.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr COLORREF kBackground = RGB(255, 255, 255);

void Fill(HDC target, const RECT& area, COLORREF colour) {
    if (area.left >= area.right || area.top >= area.bottom) return;
    SetDCBrushColor(target, colour);
    FillRect(target, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

COLORREF AsColor(std::uint32_t pixel) {
    return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
}

}  // namespace

void FrameBuffer::Replace(Pixels& pixels) {
    const std::lock_guard lock(lock_);
    std::swap(pixels_, pixels);
}

// Nothing else writes to the frame meanwhile.
DirtyTiles FrameBuffer::DifferenceFrom(const Pixels& earlier) const {
    DirtyTiles dirty;
    dirty.AddDifference(earlier, pixels_);
    return dirty;
}

void FrameBuffer::Clear() {
    Pixels none;
    Replace(none);
}

SIZE FrameBuffer::Size() const {
    const std::lock_guard lock(lock_);
    return {pixels_.width, pixels_.height};
}

Pixels FrameBuffer::Crop(POINT origin, SIZE size, POINT& inArea) const {
    constexpr std::uint32_t kOpaque = 0xFF000000;
    const std::lock_guard lock(lock_);
    const RECT frame = {0, 0, pixels_.width, pixels_.height};
    const RECT wanted = {origin.x, origin.y, origin.x + size.cx, origin.y + size.cy};
    RECT area = {};
    if (!IntersectRect(&area, &frame, &wanted)) return {};
    inArea.x -= area.left - origin.x;
    inArea.y -= area.top - origin.y;
    Pixels copy = {area.right - area.left, area.bottom - area.top, {}};
    copy.colors.reserve(static_cast<size_t>(copy.width) * copy.height);
    for (LONG y = area.top; y < area.bottom; ++y) {
        const auto* const row = pixels_.colors.data() + static_cast<size_t>(y) * pixels_.width;
        for (LONG x = area.left; x < area.right; ++x)
            copy.colors.push_back(row[x] | kOpaque);
    }
    return copy;
}

void FrameBuffer::Paint(HDC target, const RECT& area, const RECT& clip, double scale) const {
    const std::lock_guard lock(lock_);
    if (pixels_.colors.empty()) return Fill(target, area, kBackground);
    const int width = std::min<int>(std::lround(pixels_.width * scale), area.right);
    const int height = std::min<int>(std::lround(pixels_.height * scale), area.bottom);
    const bool isScaled = scale != 1;
    const int top = isScaled ? 0 : std::clamp<int>(clip.top, 0, height);
    const int bottom = isScaled ? height : std::clamp<int>(clip.bottom, top, height);
    const int first = std::lround(top / scale), rows = std::lround(bottom / scale) - first;
    BITMAPINFO format = {};
    format.bmiHeader = {sizeof format.bmiHeader, pixels_.width, -rows, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    SetStretchBltMode(target, isScaled ? HALFTONE : COLORONCOLOR);
    if (rows > 0)
        StretchDIBits(target, 0, top, width, bottom - top, 0, 0, std::lround(width / scale), rows,
                      pixels_.colors.data() + static_cast<size_t>(first) * pixels_.width, &format,
                      DIB_RGB_COLORS, SRCCOPY);
    const COLORREF beyond = AsColor(pixels_.colors.back());
    Fill(target, {width, 0, area.right, area.bottom}, beyond);
    Fill(target, {0, height, width, area.bottom}, beyond);
}

}  // namespace tarvik
