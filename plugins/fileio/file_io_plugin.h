#pragma once

#include <memory>

#include "host/plugin_registry/plugin_base.h"
#include "plugins/fileio/shared_file.h"

namespace tarvik {

// `fileIO`: one open file, whose bytes go to streams and come from them. A transfer that is under way goes on
// when script drops the object, and fails when script closes the file.
class CFileIOPlugin : public WindowPlugin<CFileIOPlugin> {
  public:
    static constexpr char kClassName[] = "CFileIOPlugin";
    static std::span<const Member<CFileIOPlugin>> Members();

    bool Open(BSTR path, BSTR mode);
    void Close();
    bool ReadAsync(IDispatch* options);
    bool WriteAsync(IDispatch* options);
    Variant Read(ComPtr<IDispatch> stream, CoercedInt length);
    Variant Write(ComPtr<IDispatch> stream, CoercedInt length);
    Variant Seek(Int64 offset, StrictInt32 origin);
    Number GetSize();
    void SetSize(UInt64 size);

  private:
    std::shared_ptr<SharedFile> file_ = std::make_shared<SharedFile>();
};

}  // namespace tarvik
