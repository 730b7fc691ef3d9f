#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace tarvik {

// What could be read from the file, in bytes; nothing for a folder, or if it cannot be opened for reading.
std::optional<ULONGLONG> FileSize(const std::wstring& path);

}  // namespace tarvik
