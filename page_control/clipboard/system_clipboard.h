#pragma once

#include <windows.h>

#include <optional>

#include "page_control/clipboard/clipboard_content.h"

// The clipboard of the system: text, "HTML Format", and pictures as "PNG" and CF_DIB. Both functions fail
// while another program has it open. Main thread.
namespace tarvik {

struct SystemClipboardState {
    ClipboardContent content;
    DWORD sequence = 0;  // see GetClipboardSequenceNumber
};
std::optional<SystemClipboardState> ReadSystemClipboard(HWND owner);

// Replaces what the clipboard holds.
bool WriteSystemClipboard(HWND owner, const ClipboardContent& content);

// Whether the clipboard holds what ReadSystemClipboard can read.
bool SystemClipboardHasContent();

}  // namespace tarvik
