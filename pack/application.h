#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

// A file or a folder of an application. Its name is that in the archive: from the application's folder, with
// slashes; that of a folder ends in one.
struct Entry {
    std::wstring name;
    std::wstring path;
    ULONGLONG size = 0;
};

// The page that an application begins with.
inline constexpr std::wstring_view kFirstPage = L"resource/index.html";

// Everything that is in the folder, each folder behind its contents. Throws a Failure where the folder is no
// application, and where the host could not unpack it everywhere.
std::vector<Entry> ReadApplication(const std::wstring& folder);

ULONGLONG TotalSize(const std::vector<Entry>& entries);

}  // namespace tarvik
