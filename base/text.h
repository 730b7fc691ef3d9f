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

// Compares ordinally, ignoring case in every language.
bool SameIgnoringCase(std::wstring_view left, std::wstring_view right);

// The system's message for a status, without a full stop; empty if there is none.
std::wstring SystemText(HRESULT status);

// The text as one quoted argument of a command line, as CommandLineToArgvW parses it.
std::wstring QuoteArgument(std::wstring_view text);

}  // namespace tarvik
