#pragma once

#include <windows.h>

#include "tarvik/options.h"

namespace tarvik {

// Shows a modal message box, then calls the function for the button that closed it. The owner may be null.
// Returns false if no box can be shown.
bool ShowMessageBox(HWND owner, const Options& options);

}  // namespace tarvik
