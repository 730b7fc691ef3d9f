#pragma once

#include <string_view>

namespace tarvik {

// Sends a message to every window with the identifier, in turn, and waits until each has handled it. Returns
// whether there is such a window, even if its handler failed. A null name sends nothing. Called on
// the main thread, which handles sent messages while it waits, so that calls can nest.
bool SendToReceivers(const wchar_t* identifier, const wchar_t* name, std::wstring_view payload);

}  // namespace tarvik
