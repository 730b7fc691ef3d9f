#pragma once

#include <memory>

#include "host/plugin_registry/plugin_base.h"
#include "plugins/fileio/shared_file.h"

namespace tarvik {

// `fileIO`: one open file, read into streams and written from them. A transfer in progress continues after
// the object has been released, and fails when the file is closed.
class CFileIOPlugin : public WindowPlugin<CFileIOPlugin> {
  public:
    static constexpr char kClassName[] = "CFileIOPlugin";
    static std::span<const Member<CFileIOPlugin>> Members();

    bool Open(BSTR path, BSTR mode);
    void Close();
    bool ReadAsync(IDispatch* options);
    bool WriteAsync(IDispatch* options);
    // Return the number of bytes transferred, even if they stopped at a failure.
    Variant Read(const ComPtr<IDispatch>& stream, CoercedInt length);
    Variant Write(const ComPtr<IDispatch>& stream, CoercedInt length);
    Variant Seek(Int64 offset, StrictInt32 origin);
    Number GetSize();
    void SetSize(UInt64 size);

  private:
    std::shared_ptr<SharedFile> file_ = std::make_shared<SharedFile>();
};

}  // namespace tarvik
