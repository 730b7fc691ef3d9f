#include "base/folder_reader.h"

#include <string_view>
#include <utility>

#include "tarvik/status.h"

namespace tarvik {

FolderReader::FolderReader(const std::wstring& pattern) : find_(FindFirstFileW(pattern.c_str(), &entry_)) {
    if (!find_) status_ = LastFailureStatus();
}

bool FolderReader::Next() {
    while (find_) {
        if (std::exchange(isConsumed_, true) && !FindNextFileW(find_.Get(), &entry_)) {
            if (GetLastError() != ERROR_NO_MORE_FILES) status_ = LastFailureStatus();
            find_.Reset();
            break;
        }
        const std::wstring_view name = entry_.cFileName;
        if (name != L"." && name != L"..") return true;
    }
    return false;
}

bool IsLink(const WIN32_FIND_DATAW& entry) {
    if (!(entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT)) return false;
    // Wine leaves the tag 0 and sets the attribute for links only.
    const DWORD tag = entry.dwReserved0;
    return tag == 0 || IsReparseTagNameSurrogate(tag);
}

// FindFirstFile fails for a path that ends in a separator.
bool IsLink(std::wstring path) {
    path.erase(path.find_last_not_of(L"\\/") + 1);
    FolderReader entry(path);
    return entry.Next() && IsLink(entry.Entry());
}

}  // namespace tarvik
