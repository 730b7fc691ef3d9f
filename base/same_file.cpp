#include "base/same_file.h"

#include <windows.h>

#include <optional>
#include <tuple>

#include "tarvik/owners.h"

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

bool IsSameFile(const std::wstring& left, const std::wstring& right) {
    const auto identity = IdentityOf(left);
    return identity && identity == IdentityOf(right);
}

}  // namespace tarvik
