#pragma once

#include <windows.h>

#include <string>

#include "tarvik/com_ptr.h"
#include "tarvik/owners.h"
#include "tarvik/stream.h"

namespace tarvik {

// The destination of an archive. Offsets may decrease between writes.
class ArchiveOutput {
  public:
    virtual ~ArchiveOutput() = default;
    virtual size_t WriteAt(ULONGLONG offset, const void* data, DWORD count) = 0;  // returns the bytes written
    virtual void Commit() = 0;                                                    // the archive is complete
    virtual bool IsAt(const std::wstring& path) const = 0;  // takes a path as its folder lists it
};

// A new file, deleted by the destructor unless Commit has been called.
class FileOutput : public ArchiveOutput {
  public:
    FileOutput(const std::wstring& path, bool overWrite);  // failures are thrown
    ~FileOutput() override;
    size_t WriteAt(ULONGLONG offset, const void* data, DWORD count) override;
    void Commit() override { file_.Reset(); }
    bool IsAt(const std::wstring& path) const override;

  private:
    std::wstring path_;
    UniqueHandle file_;
    std::wstring name_;  // as its folder lists it
};

class StreamOutput : public ArchiveOutput {
  public:
    explicit StreamOutput(TVK::IStream* stream) : stream_(stream) {}
    size_t WriteAt(ULONGLONG offset, const void* data, DWORD count) override;
    void Commit() override {}
    bool IsAt(const std::wstring&) const override { return false; }

  private:
    ComPtr<TVK::IStream> stream_;
};

}  // namespace tarvik
