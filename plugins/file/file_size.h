#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace tarvik {

// The size in bytes; empty for a folder, or if the file cannot be opened for reading.
std::optional<ULONGLONG> FileSize(const std::wstring& path);

}  // namespace tarvik
