#pragma once

#include <windows.h>

#include <memory>
#include <span>
#include <vector>

#include "page_control/encoding/picture_codec.h"

namespace tarvik {

// Decodes PNG files of the form that the engine uses for frames: three bytes for a pixel, not interlaced. It
// takes a third of the time of the system's codec, which pays off only for pictures in quick succession.
class PngDecoder {
  public:
    PngDecoder();
    ~PngDecoder();
    PngDecoder(const PngDecoder&) = delete;
    PngDecoder& operator=(const PngDecoder&) = delete;

    // Reuses the memory of `pixels`. False if the file has another form or is damaged.
    bool Decode(std::span<const BYTE> file, Pixels& pixels);

  private:
    struct Inflater;
    bool Inflate(std::span<const BYTE> data);

    const std::unique_ptr<Inflater> inflater_;
    std::vector<BYTE> rows_;  // each after a byte with its filter
    size_t filled_ = 0;
};

}  // namespace tarvik
