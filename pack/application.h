#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

// A file or a folder of an application. Its name is its path in the archive: relative to the application's
// folder, with slashes. The name of a folder ends in a slash.
struct Entry {
    std::wstring name;
    std::wstring path;
    ULONGLONG size = 0;
};

// The first page of an application.
inline constexpr std::wstring_view kFirstPage = L"resource/index.html";

// Everything in the folder, each folder after its contents. Throws a Failure if the folder is not an
// application, or if the host could not unpack it for every user.
std::vector<Entry> ReadApplication(const std::wstring& folder);

ULONGLONG TotalSize(const std::vector<Entry>& entries);

}  // namespace tarvik
