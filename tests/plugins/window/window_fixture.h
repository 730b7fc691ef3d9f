#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/plugins/support/plugin_of_window.h"

namespace tarvik {

// The content of a bitmap file with 24 bits a pixel. `pixels` are 0x__RRGGBB, from the top.
inline std::string BitmapOf(const std::vector<uint32_t>& pixels, LONG width) {
    const LONG height = static_cast<LONG>(pixels.size()) / width;
    const LONG stride = (width * 3 + 3) & ~3;
    BITMAPFILEHEADER file = {};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
    file.bfSize = file.bfOffBits + stride * height;
    BITMAPINFOHEADER info = {sizeof info, width, height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    std::string bytes(reinterpret_cast<const char*>(&file), sizeof file);
    bytes.append(reinterpret_cast<const char*>(&info), sizeof info);
    for (LONG y = height - 1; y >= 0; --y) {
        for (LONG x = 0; x < width; ++x)
            bytes.append(reinterpret_cast<const char*>(&pixels[y * width + x]), 3);
        bytes.resize(bytes.size() + stride - width * 3);
    }
    return bytes;
}

class WindowPluginTest : public PluginOfWindow {
  protected:
    WindowPluginTest() : PluginOfWindow(L"window") {}

    RECT Place() const {
        RECT rect = {};
        GetWindowRect(window_, &rect);
        return rect;
    }
    bool HasStyle(LONG bits) const { return (GetWindowLongW(window_, GWL_STYLE) & bits) == bits; }
};

}  // namespace tarvik
