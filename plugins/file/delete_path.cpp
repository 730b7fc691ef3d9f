#include "plugins/file/delete_path.h"

#include "base/folder_reader.h"
#include "base/status.h"
#include "base/walk_folder.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

HRESULT DeleteOne(const std::wstring& path, DWORD attributes, bool delayed) {
    const wchar_t* const name = path.c_str();
    const BOOL done = delayed ? MoveFileExW(name, nullptr, MOVEFILE_DELAY_UNTIL_REBOOT)
                      : attributes & FILE_ATTRIBUTE_DIRECTORY ? RemoveDirectoryW(name)
                                                              : DeleteFileW(name);
    return done ? S_OK : LastErrorStatus();
}

// WalkFolder returns E_FAIL for an empty folder.
HRESULT DeleteContents(const std::wstring& folder, bool delayed) {
    const HRESULT status = WalkFolder(
        folder, nullptr, true,
        [delayed](const std::wstring& path, DWORD attributes, ULONGLONG) {
            DeleteOne(path, attributes, delayed);
            return S_OK;
        },
        LinkPolicy::kSkip);
    return status == E_FAIL ? S_OK : status;
}

}  // namespace

HRESULT DeletePath(const std::wstring& path, bool delayed) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return S_OK;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) && !IsLink(path)) {
        if (const HRESULT status = DeleteContents(path, delayed); FAILED(status)) return status;
    }
    return DeleteOne(path, attributes, delayed);
}

}  // namespace tarvik
