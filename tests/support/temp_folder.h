#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tarvik/owners.h"

namespace tarvik {

// A fresh folder of the test's own, removed with all its contents at the end.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::wstring& Path() const { return path_; }
    std::wstring operator/(std::wstring_view name) const { return path_ + L"\\" + std::wstring(name); }

    // Writes a file, making its parent folders; returns its full path.
    std::wstring Write(std::wstring_view name, std::string_view bytes) const;

  private:
    std::wstring path_;
};

// A file in use: others may have it only as `share` says.
UniqueHandle HoldFile(const std::wstring& path, DWORD share = 0);
bool FileExists(const std::wstring& path);
std::string ReadFileBytes(const std::wstring& path);  // fails the test if it cannot be read

// Every file and folder below, by its path with slashes, and the content of files.
std::vector<std::pair<std::u8string, std::string>> ReadTree(const std::wstring& folder);

}  // namespace tarvik
