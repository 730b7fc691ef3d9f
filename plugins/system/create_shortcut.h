#pragma once

#include "tarvik/plugin.h"
#include "tarvik/script_object.h"

namespace tarvik {

// Saves a shortcut to the option `src` at `dest`, or on the desktop under `destName`.
HRESULT SaveShortcut(TVK::ICore* core, const ScriptObject& options);

}  // namespace tarvik
