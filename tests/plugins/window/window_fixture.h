#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/plugins/support/plugin_of_window.h"

namespace tarvik {

// The content of a bitmap file. `pixels` are 0x__RRGGBB, from the top; the file stores the last row first.
inline std::string BitmapOf(const std::vector<uint32_t>& pixels, LONG width) {
    const LONG height = static_cast<LONG>(pixels.size()) / width;
    const BITMAPINFOHEADER info = {sizeof info, width, height, 1, 32};
    BITMAPFILEHEADER file = {.bfType = 0x4D42, .bfOffBits = sizeof file + sizeof info};
    file.bfSize = file.bfOffBits + static_cast<DWORD>(pixels.size() * sizeof(uint32_t));
    std::string bytes(reinterpret_cast<const char*>(&file), sizeof file);
    bytes.append(reinterpret_cast<const char*>(&info), sizeof info);
    for (LONG y = height - 1; y >= 0; --y)
        bytes.append(reinterpret_cast<const char*>(&pixels[y * width]), width * sizeof(uint32_t));
    return bytes;
}

class WindowPluginTest : public PluginOfWindow {
  protected:
    WindowPluginTest() : PluginOfWindow(L"window") {}
};

}  // namespace tarvik
