#pragma once

#include <windows.h>

#include "tarvik/script_object.h"

namespace tarvik {

// Shows a modal message box, then calls the function for the button that closed it. The owner may be null.
// Returns false if no box can be shown.
bool ShowMessageBox(HWND owner, const ScriptObject& options);

}  // namespace tarvik
