#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// What pages call a key: `code` by its place on the keyboard, `key` by its meaning. Tables of the published
// standards for KeyboardEvent.code and KeyboardEvent.key; empty for keys that they do not name.
std::string KeyCodeName(UINT scanCode, bool extended);
std::string KeyName(UINT virtualKey, UINT scanCode);

}  // namespace tarvik
