#include "pack/paths.h"

#include "base/folder_reader.h"
#include "base/same_file.h"
#include "cli/failure.h"

namespace tarvik {

bool IsInside(const std::wstring& path, const std::wstring& folder) {
    for (size_t end = path.rfind(L'\\'); end != std::wstring::npos && end > 0;
         end = path.rfind(L'\\', end - 1)) {
        if (IsSameFile(path.substr(0, end + 1), folder)) return true;
    }
    return false;
}

void CheckIsNewFolder(const std::wstring& folder) {
    const DWORD attributes = GetFileAttributesW(folder.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return;
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY))
        throw Failure(L"\"" + folder + L"\" is a file. Choose a new folder.");
    if (FolderReader(folder + L"\\*").Next())
        throw Failure(L"The folder \"" + folder + L"\" is not empty. Choose a new folder.");
}

}  // namespace tarvik
