#pragma once

#include <windows.h>

#include "page_control/encoding/picture_codec.h"
#include "tarvik/owners.h"

namespace tarvik {

// A translucent picture that follows the pointer, and takes no part in the search for a drop target.
class DragImage {
  public:
    // `pixels` are premultiplied; `hotSpot` is the place of the pointer in them. Nothing is shown without
    // pixels.
    DragImage(const Pixels& pixels, POINT hotSpot);

    void Follow() const;

  private:
    UniqueWindow window_;
    POINT hotSpot_;
};

}  // namespace tarvik
