#pragma once

#include <windows.h>

#include <string>

#include "page_control/engine/devtools.h"

namespace tarvik {

// Prints a page in a way that the user chooses, or saves it as a PDF file where there is no printer. Returns
// when that is done, or when the user has cancelled it; all dialogs are modal to `owner`. The target may be
// destroyed meanwhile. Main thread.
void PrintPage(HWND owner, const PageTarget& target, const std::wstring& title);

}  // namespace tarvik
