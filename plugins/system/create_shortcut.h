#pragma once

#include "tarvik/options.h"
#include "tarvik/plugin.h"

namespace tarvik {

// Saves a shortcut to the option `src` at `dest`, or on the desktop under `destName`.
HRESULT SaveShortcut(TVK::ICore* core, const Options& options);

}  // namespace tarvik
