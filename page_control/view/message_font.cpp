#include "page_control/view/message_font.h"

#include <cmath>

#include "base/dpi.h"

namespace tarvik {

// The system's font is made for the scale of the main monitor.
UniqueGdi MessageFont(HWND window, double factor) {
    NONCLIENTMETRICSW metrics = {sizeof metrics};
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    const HDC screen = GetDC(nullptr);
    const double scale = static_cast<double>(DpiOf(window)) / GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    LONG& height = metrics.lfMessageFont.lfHeight;
    height = std::lround(height * scale * factor);
    return UniqueGdi(CreateFontIndirectW(&metrics.lfMessageFont));
}

}  // namespace tarvik
