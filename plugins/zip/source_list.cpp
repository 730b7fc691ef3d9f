#include "plugins/zip/source_list.h"

#include "base/walk_folder.h"
#include "tarvik/owners.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

ULONGLONG SizeOf(const std::wstring& path) {
    const UniqueHandle file(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size = {};
    if (!file || !GetFileSizeEx(file.Get(), &size)) ThrowLastError();
    return static_cast<ULONGLONG>(size.QuadPart);
}

class SourceFinder {
  public:
    SourceFinder(size_t limit, const ArchiveOutput& archive) : limit_(limit), archive_(archive) {}

    void Add(const std::wstring& path) {
        const DWORD attributes = GetFileAttributesW(path.c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES) throw StatusError(E_FAIL);
        if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
            AddContents(path);
        } else {
            Add(path.size(), path, SizeOf(path));
        }
    }

    SourceList Result() && { return std::move(list_); }

  private:
    // WalkFolder does not report the folder itself, so it gets no entry.
    void AddContents(const std::wstring& folder) {
        const HRESULT status =
            WalkFolder(folder, nullptr, true, [&](const std::wstring& path, DWORD, ULONGLONG size) {
                if (!archive_.IsAt(path)) Add(folder.size(), path, size);
                return S_OK;
            });
        if (FAILED(status) && status != E_FAIL) throw StatusError(status);  // E_FAIL: empty
    }

    void Add(size_t rootLength, const std::wstring& path, ULONGLONG size) {
        if (list_.sources.size() == limit_) throw StatusError(E_FAIL);
        list_.sources.push_back({rootLength, path});
        list_.totalSize += size;
    }

    SourceList list_;
    size_t limit_;
    const ArchiveOutput& archive_;
};

}  // namespace

SourceList FindSources(const std::vector<std::wstring>& paths, size_t limit, const ArchiveOutput& archive) {
    SourceFinder finder(limit, archive);
    for (const std::wstring& path : paths)
        finder.Add(path);
    return std::move(finder).Result();
}

}  // namespace tarvik
