#pragma once

#include <windows.h>

#include "tarvik/options.h"

namespace tarvik {

// Shows a box over the owner, which may be null, until it is answered, and then calls the function that is
// given for the answer. False if no box could be shown.
bool ShowMessageBox(HWND owner, const Options& options);

}  // namespace tarvik
