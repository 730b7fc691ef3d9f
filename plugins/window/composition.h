#pragma once

#include <windows.h>

namespace tarvik {

// Desktop composition, which a system may lack or have disabled.
class Composition {
  public:
    virtual ~Composition() = default;
    virtual bool IsEnabled() const = 0;
    // `margin` is the width in pixels on each side.
    virtual void ExtendFrame(HWND window, int margin) const = 0;

    static const Composition& System();
};

}  // namespace tarvik
