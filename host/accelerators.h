#pragma once

#include <windows.h>

namespace tarvik {

// Whether a key of the engine's own (open, reload, zoom ...) is kept from it: such keys make no sense in an
// application. `control` tells whether Ctrl is held.
bool IsSwallowedKey(WPARAM key, bool control);

}  // namespace tarvik
