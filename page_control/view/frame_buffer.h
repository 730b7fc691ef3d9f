#pragma once

#include <windows.h>

#include <mutex>

#include "page_control/encoding/picture_codec.h"
#include "page_control/view/dirty_tiles.h"

namespace tarvik {

// The last frame of a page. The decoder's thread replaces it; the window's thread paints it.
class FrameBuffer {
  public:
    // Swaps in the new frame, and returns the old one in its place.
    void Replace(Pixels& pixels);
    // Where the frame differs from an earlier one. On the thread that replaces it.
    DirtyTiles DifferenceFrom(const Pixels& earlier) const;
    void Clear();
    SIZE Size() const;  // empty before the first frame

    // Paints the part of the frame, enlarged by `scale`, that shows in `clip`, a part of the area. What is
    // beyond the frame, as while a window grows, gets the colour of its last pixel.
    void Paint(HDC target, const RECT& area, const RECT& clip, double scale) const;

    // A copy of what the frame shows of an area. `inArea` is a place in the area, and becomes the same place
    // in the copy.
    Pixels Crop(POINT origin, SIZE size, POINT& inArea) const;

  private:
    mutable std::mutex lock_;
    Pixels pixels_;
};

}  // namespace tarvik
