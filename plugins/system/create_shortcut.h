#pragma once

#include "tarvik/plugin.h"
#include "tarvik/options.h"

namespace tarvik {

// Saves a shortcut to `src` at `dest`, or under a name on the desktop.
HRESULT SaveShortcut(TVK::ICore* core, const Options& options);

}  // namespace tarvik
