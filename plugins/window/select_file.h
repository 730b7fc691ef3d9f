#pragma once

#include <windows.h>
#include <exdisp.h>

#include "tarvik/variant.h"
#include "tarvik/plugin.h"
#include "tarvik/options.h"

namespace tarvik {

// Asks for a file, or with the option `multi` for files. The answer is the path, or an Array of the page's
// script with the paths; null if nothing was chosen.
Variant AskForFile(HWND owner, TVK::ICore* core, IWebBrowser2* browser, const Options& options);

}  // namespace tarvik
