#include "archive/mapped_file.h"

#include "tarvik/status.h"

namespace tarvik {

MappedFile::MappedFile(const std::wstring& path) {
    const UniqueHandle file(CreateFileW(path.c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) ThrowLastError();
    LARGE_INTEGER size = {};
    if (!GetFileSizeEx(file.Get(), &size)) ThrowLastError();
    // Without ZIP64 the offsets in an archive have 32 bits.
    if (size.HighPart != 0) throw StatusError(E_FAIL);
    const UniqueHandle mapping(CreateFileMappingW(file.Get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
    if (!mapping) ThrowLastError();
    view_.Reset(MapViewOfFile(mapping.Get(), FILE_MAP_READ, 0, 0, 0));
    if (!view_) ThrowLastError();
    size_ = static_cast<std::size_t>(size.QuadPart);
}

}  // namespace tarvik
