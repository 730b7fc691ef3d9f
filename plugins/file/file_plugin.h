#pragma once

#include <optional>

#include "host/plugin_registry/plugin_base.h"
#include "plugins/file/work_list.h"

#undef DeleteFile  // a macro of windows.h; handlers have the names of their members

namespace tarvik {

// `file`: queries paths; deletes, copies, moves and lists files. Only copyAsync, moveAsync and enumFiles are
// asynchronous. Relative paths refer to the page's folder; those of enumFiles to the current folder.
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
    bool Start(FileOperation operation, IDispatch* options) const;
};

}  // namespace tarvik
