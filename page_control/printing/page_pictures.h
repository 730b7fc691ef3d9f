#pragma once

#include "page_control/encoding/picture_codec.h"

namespace tarvik {

// The pages of a document as pictures. For one thread.
class PagePictures {
  public:
    struct Size {  // in inches
        double width;
        double height;
    };

    virtual ~PagePictures() = default;
    virtual int Count() const = 0;
    // `page` counts from 0. Both throw StatusError.
    virtual Size SizeOf(int page) const = 0;
    virtual void Render(int page, int width, int height, Pixels& pixels) const = 0;
};

}  // namespace tarvik
