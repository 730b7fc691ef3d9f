#pragma once

#include <windows.h>

#include <string>

#include "control/view/input_queue.h"
#include "control/view/page_side.h"

// The engine, running without a desktop of its own, does not share the system's clipboard: these join the
// two.
namespace tarvik {

// What the page has copied, of which the view's end in the page tells.
void PutOnClipboard(HWND owner, const std::wstring& text);

// Before a paste, the engine's clipboard gets the text of the system's; none if there is none.
void BringClipboard(HWND owner, InputQueue& queue, const PageSide& page);

bool ClipboardHasText();

}  // namespace tarvik
