#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tarvik {

struct WorkItem {
    std::wstring path;  // below the source, with a separator in front; empty for the source itself
    bool isFolder;
};

struct WorkList {
    std::vector<WorkItem> items;
    ULONGLONG total = 0;  // bytes of all files
};

enum class Transfer { kCopy, kMove };

// Everything that a source consists of, listed before any of it is touched: so a folder may be copied into
// itself. A copy makes a folder before its contents, a move removes it after them. A folder that cannot be
// read throws the system's status.
WorkList CollectWork(const std::wstring& source, Transfer kind);

// A file's share in a run's sum. One that cannot be asked counts as the largest number, with which sums wrap
// around; that is intended.
ULONGLONG SizeToCount(const std::wstring& path);

}  // namespace tarvik
