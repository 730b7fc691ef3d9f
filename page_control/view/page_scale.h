#pragma once

#include <windows.h>

#include <cmath>

#include "base/dpi.h"

namespace tarvik {

// The pixels of a window for each CSS pixel of its page. Pages are laid out, and receive input, in CSS
// pixels; the host and its plug-ins measure in pixels of the screen.
inline double PageScaleOf(HWND window) {
    return static_cast<double>(DpiOf(window)) / USER_DEFAULT_SCREEN_DPI;
}

// A point outside of a window and, whatever its scale, of its page.
inline constexpr POINT kOutside = {-10, -10};

// The nearest CSS pixel.
inline LONG ToPage(LONG pixels, double scale) {
    return std::lround(pixels / scale);
}
inline POINT ToPage(POINT point, double scale) {
    return {ToPage(point.x, scale), ToPage(point.y, scale)};
}

// The smallest page that fills an area of a window, in CSS pixels.
inline SIZE PageSizeOf(const RECT& area, double scale) {
    return {static_cast<LONG>(std::ceil(area.right / scale)),
            static_cast<LONG>(std::ceil(area.bottom / scale))};
}

}  // namespace tarvik
