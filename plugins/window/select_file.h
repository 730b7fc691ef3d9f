#pragma once

#include <windows.h>
#include <exdisp.h>

#include "tarvik/plugin.h"
#include "tarvik/script_object.h"
#include "tarvik/variant.h"

namespace tarvik {

// Lets the user select a file, or several with the option `multi`. Returns the path, or a JavaScript Array of
// paths; null if the user cancels.
Variant ShowFileDialog(HWND owner, TVK::ICore* core, IWebBrowser2* browser, const ScriptObject& options);

}  // namespace tarvik
