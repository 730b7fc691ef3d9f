#pragma once

#include <windows.h>

namespace tarvik {

// The desktop's compositor. Systems that have none, or have it turned off, draw windows the plain way.
class Composition {
  public:
    virtual ~Composition() = default;
    virtual bool IsEnabled() const = 0;
    // Margins of so many pixels on all sides.
    virtual void ExtendFrame(HWND window, int margin) const = 0;

    static const Composition& System();
};

}  // namespace tarvik
