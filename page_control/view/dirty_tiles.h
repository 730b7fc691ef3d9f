#pragma once

#include <windows.h>

#include <array>
#include <cstdint>

#include "page_control/encoding/picture_codec.h"

namespace tarvik {

// The tiles of a picture in which it has changed. All pictures have the same number of tiles.
class DirtyTiles {
  public:
    // Adds the tiles in which two pictures differ; all of them if their sizes differ.
    void AddDifference(const Pixels& before, const Pixels& after);
    void Add(const DirtyTiles& other);

    double Share() const;
    bool IsEmpty() const { return Share() == 0; }
    RECT Bounds() const;  // in pixels of the last picture

  private:
    static constexpr int kSide = 64;  // in tiles

    SIZE tile_ = {};                              // in pixels
    std::array<std::uint64_t, kSide> rows_ = {};  // a bit for each tile, the leftmost one first
};

}  // namespace tarvik
