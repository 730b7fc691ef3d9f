#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// A copy of a file that becomes the output once it is complete. Until then it has a temporary name beside the
// output. Without Finish, the destructor deletes it.
class UnfinishedFile {
  public:
    UnfinishedFile(const std::wstring& source, const std::wstring& output);  // and Finish: throw a Failure
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    const std::wstring& Path() const { return path_; }
    ULONGLONG Finish();  // returns the size

  private:
    std::wstring output_;
    std::wstring path_;
};

}  // namespace tarvik
