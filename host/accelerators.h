#pragma once

#include <windows.h>

namespace tarvik {

// Whether the engine must not get a key, because its own accelerators (open, reload, zoom ...) make no sense
// in an application. `control` and `alt` state whether Ctrl and Alt are down.
bool IsSwallowedKey(WPARAM key, bool control, bool alt);

}  // namespace tarvik
