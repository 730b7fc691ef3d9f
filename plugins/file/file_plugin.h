#pragma once

#include <optional>

#include "host/plugin_registry/plugin_base.h"
#include "plugins/file/work_list.h"

#undef DeleteFile  // of the system's headers: handlers have their members' names

namespace tarvik {

// `file`: questions about paths; deleting, copying, moving and listing. Everything but copyAsync, moveAsync
// and enumFiles is done before the call returns. Paths count from the page, those of enumFiles from the
// current folder.
class CFilePlugin : public WindowPlugin<CFilePlugin> {
  public:
    static constexpr char kClassName[] = "CFilePlugin";
    static std::span<const Member<CFilePlugin>> Members();

    bool IsFileExist(BSTR path);  // also true for a folder
    Outcome DeleteFile(BSTR path, std::optional<bool> delayed);
    Outcome Copy(BSTR src, BSTR dest);
    bool CopyAsync(IDispatch* options);
    Outcome Move(BSTR src, BSTR dest);
    bool MoveAsync(IDispatch* options);
    bool MkDir(BSTR path);
    HRESULT EnumFiles(const Call& call);
    Variant GetSize(BSTR path);
    bool IsDir(BSTR path);
    bool IsDirEmpty(BSTR path);

  private:
    std::wstring PathOf(std::wstring_view path) const;
    bool Start(Transfer kind, IDispatch* options) const;
};

}  // namespace tarvik
