#include "base/path.h"

#include <windows.h>
#include <shlwapi.h>

#include "tarvik/status.h"

namespace tarvik {

std::wstring ExecutablePath() {
    return ReadPath([](wchar_t* buffer) { GetModuleFileNameW(nullptr, buffer, kPathLength); });
}

std::wstring FullPath(const std::wstring& path) {
    const DWORD capacity = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(capacity, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), capacity, full.data(), nullptr);
    if (length == 0 || length >= capacity) ThrowLastError();
    full.resize(length);
    return full;
}

std::wstring ParentFolder(std::wstring_view path, std::wstring_view separators) {
    const size_t separator = path.find_last_of(separators);
    if (separator == std::wstring_view::npos) return {};
    const bool isAfterRoot = separator == 0 || (separator == 2 && path[1] == L':');
    const size_t length = separator + (isAfterRoot ? 1 : 0);
    return std::wstring(path.substr(0, length == path.size() ? 0 : length));
}

bool IsFile(const std::wstring& path) {
    return PathFileExistsW(path.c_str()) && !PathIsDirectoryW(path.c_str());
}

}  // namespace tarvik
