#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace tarvik {

// Length of the path buffers of the whole system, the terminator included.
inline constexpr size_t kPathLength = MAX_PATH;

// Full path of the running executable, cut at the length of a path buffer.
std::wstring ExecutablePath();

// A path completed from the current folder; throws the status of a failure.
std::wstring FullPath(const std::wstring& path);

// What stands behind the last backslash of a path; all of it if there is none.
inline std::wstring FileNameOf(const std::wstring& path) {
    return path.substr(path.rfind(L'\\') + 1);
}

// Calls a function that fills a buffer of kPathLength characters, and returns the text up to the terminator.
template <class Fill>
std::wstring ReadPath(Fill&& fill) {
    wchar_t buffer[kPathLength] = {};
    fill(buffer);
    buffer[kPathLength - 1] = L'\0';
    return buffer;
}

// Letter for letter, without regard to their case in any language.
bool SameIgnoringCase(std::wstring_view left, std::wstring_view right);

// The system's words for a status, without a full stop; empty if it has none.
std::wstring SystemText(HRESULT status);

// The text as one argument of a command line, quoted as programs of Windows read it.
std::wstring QuoteArgument(std::wstring_view text);

}  // namespace tarvik
