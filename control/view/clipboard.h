#pragma once

#include <windows.h>

#include "control/engine/devtools.h"

// The engine, running without a desktop of its own, does not share the system's clipboard: these join the
// two.
namespace tarvik {

// Puts the text that is selected in the page on the system's clipboard, a moment later; nothing if none is.
void CopyFromPage(HWND owner, PageTarget& target);

// Types the text of the system's clipboard into the page.
void PasteIntoPage(HWND owner, PageTarget& target);

bool ClipboardHasText();

}  // namespace tarvik
