#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// A copy of a file that becomes the output once it is complete. Until then it lies beside the output under a
// name of its own, and without Finish it goes again.
class UnfinishedFile {
  public:
    UnfinishedFile(const std::wstring& source, const std::wstring& output);  // both throw a Failure
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    const std::wstring& Path() const { return path_; }
    ULONGLONG Finish();  // its size

  private:
    std::wstring output_;
    std::wstring path_;
};

}  // namespace tarvik
