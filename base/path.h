#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace tarvik {

// The length of path buffers throughout the program, in characters, including the terminator.
inline constexpr size_t kPathLength = MAX_PATH;

// The full path of the running executable, truncated to kPathLength.
std::wstring ExecutablePath();

// Resolves a path against the current folder. Throws StatusError.
std::wstring FullPath(const std::wstring& path);

// The part of a path after the last backslash; the whole path if there is none.
inline std::wstring FileNameOf(const std::wstring& path) {
    return path.substr(path.rfind(L'\\') + 1);
}

// Returns the text that `fill` writes to a buffer of kPathLength characters, up to the terminator.
template <class Fill>
std::wstring ReadPath(Fill&& fill) {
    wchar_t buffer[kPathLength] = {};
    fill(buffer);
    buffer[kPathLength - 1] = L'\0';
    return buffer;
}

// The folder of a path, without a separator at its end unless it is a root ("C:\"); empty for a root and for
// a path without a separator.
std::wstring ParentFolder(std::wstring_view path, std::wstring_view separators = L"\\/");

// Whether the path exists and is not a folder.
bool IsFile(const std::wstring& path);

}  // namespace tarvik
