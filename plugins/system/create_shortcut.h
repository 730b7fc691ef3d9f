#pragma once

#include "host/contract/plugin.h"
#include "script/options.h"

namespace tarvik {

// Saves a shortcut to `src` at `dest`, or under a name on the desktop.
HRESULT SaveShortcut(TVK::ICore* core, const Options& options);

}  // namespace tarvik
