#pragma once

#include <windows.h>
#include <exdisp.h>

#include "base/variant.h"
#include "host/contract/plugin.h"
#include "script/options.h"

namespace tarvik {

// Asks for a file, or with the option `multi` for files. The answer is the path, or an Array of the page's
// script with the paths; null if nothing was chosen.
Variant AskForFile(HWND owner, TVK::ICore* core, IWebBrowser2* browser, const Options& options);

}  // namespace tarvik
