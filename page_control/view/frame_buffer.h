#pragma once

#include <windows.h>

#include <mutex>

#include "page_control/encoding/picture_codec.h"

namespace tarvik {

// The last frame of a page. The decoder's thread replaces it; the window's thread paints it.
class FrameBuffer {
  public:
    // Swaps in the new frame, and returns the memory of the old one in its place.
    void Replace(Pixels& pixels);
    void Clear();
    SIZE Size() const;  // empty before the first frame

    // Paints the frame, which is enlarged by `scale`. The area beyond it, as while a window grows, gets the
    // colour of its last pixel.
    void Paint(HDC target, const RECT& area, double scale) const;

    // A copy of what the frame shows of an area. `inArea` is a place in the area, and becomes the same place
    // in the copy.
    Pixels Crop(POINT origin, SIZE size, POINT& inArea) const;

  private:
    mutable std::mutex lock_;
    Pixels pixels_;
};

}  // namespace tarvik
