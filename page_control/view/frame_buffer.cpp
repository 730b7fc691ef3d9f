#include "page_control/view/frame_buffer.h"

#include <algorithm>
#include <cmath>

#include "tarvik/owners.h"

namespace tarvik {

namespace {

constexpr COLORREF kBackground = RGB(255, 255, 255);
constexpr COLORREF kNoticeBackground = RGB(245, 247, 249);
constexpr COLORREF kNoticeText = RGB(70, 84, 99);

void Fill(HDC target, const RECT& area, COLORREF colour) {
    if (area.left >= area.right || area.top >= area.bottom) return;
    SetDCBrushColor(target, colour);
    FillRect(target, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

COLORREF AsColor(std::uint32_t pixel) {
    return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
}

UniqueGdi NoticeFont() {
    NONCLIENTMETRICSW metrics = {sizeof metrics};
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    metrics.lfMessageFont.lfHeight = metrics.lfMessageFont.lfHeight * 5 / 4;
    return UniqueGdi(CreateFontIndirectW(&metrics.lfMessageFont));
}

}  // namespace

void FrameBuffer::Replace(Pixels& pixels) {
    const std::lock_guard lock(lock_);
    std::swap(pixels_, pixels);
}

void FrameBuffer::Clear() {
    Pixels none;
    Replace(none);
}

SIZE FrameBuffer::Size() const {
    const std::lock_guard lock(lock_);
    return {pixels_.width, pixels_.height};
}

void FrameBuffer::Paint(HDC target, const RECT& area, double scale) const {
    const std::lock_guard lock(lock_);
    if (pixels_.colors.empty()) return Fill(target, area, kBackground);
    const int width = std::min<int>(std::lround(pixels_.width * scale), area.right);
    const int height = std::min<int>(std::lround(pixels_.height * scale), area.bottom);
    BITMAPINFO format = {};
    format.bmiHeader = {
        sizeof format.bmiHeader, pixels_.width, -pixels_.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    SetStretchBltMode(target, HALFTONE);
    StretchDIBits(target, 0, 0, width, height, 0, 0, std::lround(width / scale), std::lround(height / scale),
                  pixels_.colors.data(), &format, DIB_RGB_COLORS, SRCCOPY);
    const COLORREF beyond = AsColor(pixels_.colors.back());
    Fill(target, {width, 0, area.right, area.bottom}, beyond);
    Fill(target, {0, height, width, area.bottom}, beyond);
}

void PaintNotice(HDC target, const RECT& area, const std::wstring& text) {
    Fill(target, area, kNoticeBackground);
    const UniqueGdi font = NoticeFont();
    const HGDIOBJ before = SelectObject(target, font.Get());
    SetBkMode(target, TRANSPARENT);
    SetTextColor(target, kNoticeText);
    RECT box = area;
    InflateRect(&box, -40, 0);
    RECT measured = box;
    DrawTextW(target, text.c_str(), -1, &measured, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX | DT_CALCRECT);
    box.top = std::max<LONG>(0, (area.bottom - (measured.bottom - measured.top)) / 2);
    DrawTextW(target, text.c_str(), -1, &box, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(target, before);
}

}  // namespace tarvik
