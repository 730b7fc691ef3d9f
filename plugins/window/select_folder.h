#pragma once

#include <windows.h>

#include "base/variant.h"
#include "host/contract/plugin.h"
#include "script/options.h"

namespace tarvik {

// Asks for a folder. The answer is its path; null if none was chosen, or one that is in no file system.
Variant AskForFolder(HWND owner, TVK::ICore* core, const Options& options);

}  // namespace tarvik
