#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tarvik/owners.h"

namespace tarvik {

// A new temporary folder, which the destructor removes with its contents.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::wstring& Path() const { return path_; }
    std::wstring operator/(std::wstring_view name) const { return path_ + L"\\" + std::wstring(name); }

    // Writes a file, creates its parent folders, and returns its full path.
    std::wstring Write(std::wstring_view name, std::string_view bytes) const;

  private:
    std::wstring path_;
};

// Opens a file for reading; others may open it only as `share` allows.
UniqueHandle HoldFile(const std::wstring& path, DWORD share = 0);
// Also for folders.
bool FileExists(const std::wstring& path);
std::string ReadFileBytes(const std::wstring& path);  // fails the test if it cannot be read

// The relative path, with slashes, and the content of everything below a folder; the paths of folders end
// with a slash.
std::vector<std::pair<std::u8string, std::string>> ReadTree(const std::wstring& folder);

}  // namespace tarvik
