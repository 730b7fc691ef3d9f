#pragma once

#include <string>

namespace tarvik {

// Creates a folder unless it exists. Until Commit is called, the destructor removes a folder created here,
// with its contents, and leaves one that existed before alone.
class DestinationFolder {
  public:
    explicit DestinationFolder(const std::wstring& path);
    ~DestinationFolder();
    DestinationFolder(const DestinationFolder&) = delete;
    DestinationFolder& operator=(const DestinationFolder&) = delete;

    void Commit() noexcept { removeAtEnd_ = false; }

  private:
    std::wstring path_;
    bool removeAtEnd_;
};

}  // namespace tarvik
