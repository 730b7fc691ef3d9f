#pragma once

#include <windows.h>

namespace tarvik {

// Whether a key of the engine's own (open, reload, zoom ...) is kept from it: such keys make no sense in an
// application. `control` and `alt` tell whether Ctrl and Alt are held.
bool IsSwallowedKey(WPARAM key, bool control, bool alt);

}  // namespace tarvik
