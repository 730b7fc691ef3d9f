#include "pack/paths.h"

#include <windows.h>

#include <optional>
#include <tuple>

#include "base/folder_reader.h"
#include "base/owners.h"
#include "cli/failure.h"

namespace tarvik {

namespace {

using Identity = std::tuple<DWORD, DWORD, DWORD>;

std::optional<Identity> IdentityOf(const std::wstring& path) {
    const UniqueHandle file(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION info;
    if (!file || !GetFileInformationByHandle(file.Get(), &info)) return std::nullopt;
    return Identity(info.dwVolumeSerialNumber, info.nFileIndexHigh, info.nFileIndexLow);
}

}  // namespace

bool IsSame(const std::wstring& left, const std::wstring& right) {
    const auto identity = IdentityOf(left);
    return identity && identity == IdentityOf(right);
}

bool LiesIn(const std::wstring& path, const std::wstring& folder) {
    for (size_t end = path.rfind(L'\\'); end != std::wstring::npos && end > 0;
         end = path.rfind(L'\\', end - 1)) {
        if (IsSame(path.substr(0, end + 1), folder)) return true;
    }
    return false;
}

void CheckIsFree(const std::wstring& folder) {
    const DWORD attributes = GetFileAttributesW(folder.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return;
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY))
        throw Failure(L"\"" + folder + L"\" is a file. Name a new folder.");
    if (FolderReader(folder + L"\\*").Next())
        throw Failure(L"The folder \"" + folder + L"\" is not empty. Name a new one.");
}

}  // namespace tarvik
