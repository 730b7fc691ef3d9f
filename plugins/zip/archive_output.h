#pragma once

#include <windows.h>

#include <string>

#include "tarvik/com_ptr.h"
#include "tarvik/owners.h"
#include "tarvik/stream.h"

namespace tarvik {

// Where an archive goes. Pieces come with the place that they belong to, which also lies further in front.
class ArchiveOutput {
  public:
    virtual ~ArchiveOutput() = default;
    virtual size_t WriteAt(ULONGLONG offset, const void* data, DWORD count) = 0;  // the bytes written
    virtual void Keep() = 0;                                                      // the archive is complete
    virtual bool LiesAt(const std::wstring& path) const = 0;                      // a path as folders list it
};

// A new file. It goes again, unless it is kept.
class FileOutput : public ArchiveOutput {
  public:
    FileOutput(const std::wstring& path, bool overWrite);  // throws the status of the failure
    ~FileOutput() override;
    size_t WriteAt(ULONGLONG offset, const void* data, DWORD count) override;
    void Keep() override { file_.Reset(); }
    bool LiesAt(const std::wstring& path) const override;

  private:
    std::wstring path_;
    UniqueHandle file_;
    std::wstring name_;  // as its folder lists it
};

class StreamOutput : public ArchiveOutput {
  public:
    explicit StreamOutput(TVK::IStream* stream) : stream_(stream) {}
    size_t WriteAt(ULONGLONG offset, const void* data, DWORD count) override;
    void Keep() override {}
    bool LiesAt(const std::wstring&) const override { return false; }

  private:
    ComPtr<TVK::IStream> stream_;
};

}  // namespace tarvik
