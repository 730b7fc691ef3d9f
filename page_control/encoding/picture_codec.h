#pragma once

#include <windows.h>
#include <wincodec.h>

#include <cstdint>
#include <span>
#include <vector>

#include "tarvik/com_ptr.h"

namespace tarvik {

struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> colors;  // top row first, 0xAARRGGBB
};

// The system's codecs. For one thread, in an apartment. All functions throw StatusError.
class PictureCodec {
  public:
    PictureCodec();

    // Decodes PNG, JPEG and BMP. The format is one with 32 bits for a pixel. Reuses the memory of `pixels`.
    void Decode(std::span<const BYTE> file, REFWICPixelFormatGUID format, Pixels& pixels) const;

    // The pixels have an alpha channel.
    std::vector<BYTE> EncodePng(const Pixels& pixels) const;

  private:
    ComPtr<IWICImagingFactory> factory_;
};

}  // namespace tarvik
