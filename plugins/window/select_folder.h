#pragma once

#include <windows.h>

#include "tarvik/variant.h"
#include "tarvik/plugin.h"
#include "tarvik/options.h"

namespace tarvik {

// Asks for a folder. The answer is its path; null if none was chosen, or one that is in no file system.
Variant AskForFolder(HWND owner, TVK::ICore* core, const Options& options);

}  // namespace tarvik
