#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace tarvik {

// The file of a device-independent bitmap, the clipboard format CF_DIB; empty if the bitmap is compressed, or
// its header not valid. Independent of the Windows headers.
std::vector<std::uint8_t> BitmapFileOf(std::span<const std::uint8_t> bitmap);

}  // namespace tarvik
