#pragma once

#include <string_view>

namespace tarvik {

// Hands a message to every window that receives for the identifier, one after the other, and returns when the
// last has dealt with it. Whether there was such a window; that is all a sender learns. Without a name (null)
// nothing is handed over. Main thread; meanwhile it answers messages, so more may be sent before it returns.
bool SendToReceivers(const wchar_t* identifier, const wchar_t* name, std::wstring_view payload);

}  // namespace tarvik
