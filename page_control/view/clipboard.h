#pragma once

#include <windows.h>

#include <string>

#include "page_control/view/input_queue.h"
#include "page_control/view/view_script.h"

// The headless engine has a clipboard of its own. These functions connect it with the system's.
namespace tarvik {

// For a text that the page has copied.
void CopyToClipboard(HWND owner, const std::wstring& text);

// Before a paste: queues the system's text, or an empty one, for the engine's clipboard.
void QueueClipboardText(HWND owner, InputQueue& queue, const ViewScript& script);

bool ClipboardHasText();

}  // namespace tarvik
