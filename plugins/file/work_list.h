#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tarvik {

struct WorkItem {
    std::wstring path;  // relative to the source, with a leading separator; empty for the source itself
    bool isFolder;
};

struct WorkList {
    std::vector<WorkItem> items;
    ULONGLONG total = 0;  // bytes of all files
};

enum class FileOperation { kCopy, kMove };

// Lists everything in a source before any of it is touched, so that a folder can be copied into itself. A
// folder precedes its contents in a copy and follows them in a move. Throws the system's status if a folder
// cannot be read.
WorkList CollectWork(const std::wstring& source, FileOperation operation);

// The bytes of a file in the total of an operation. By design a file whose size is unknown counts as the
// largest number, so that sums wrap around.
ULONGLONG CountedSize(const std::wstring& path);

}  // namespace tarvik
