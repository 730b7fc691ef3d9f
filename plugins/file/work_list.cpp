#include "plugins/file/work_list.h"

#include "base/folder_reader.h"
#include "plugins/file/file_size.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

// Keeps the open folders in a vector: folders may be nested too deep for recursion.
class Collector {
  public:
    Collector(const std::wstring& source, FileOperation operation) : source_(source), operation_(operation) {}

    WorkList Collect() {
        const DWORD attributes = GetFileAttributesW(source_.c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES) ThrowLastError();
        if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
            if (operation_ == FileOperation::kMove && IsLink(source_)) RefuseLink();
            Enter({});
        } else {
            AddFile({}, CountedSize(source_));
        }
        while (!open_.empty())
            Step();
        return std::move(list_);
    }

  private:
    struct Folder {
        std::wstring path;
        FolderReader reader;
    };

    // A move through a link would empty the folder that it points to. A copy is harmless.
    [[noreturn]] static void RefuseLink() { throw StatusError(HRESULT_FROM_WIN32(ERROR_NOT_SUPPORTED)); }

    void Enter(std::wstring path) {
        if (operation_ == FileOperation::kCopy) list_.items.push_back({path, true});
        FolderReader reader(source_ + path + L"\\*.*");
        ThrowIfFailed(reader.Status());
        open_.push_back({std::move(path), std::move(reader)});
    }

    void Step() {
        Folder& folder = open_.back();
        if (folder.reader.Next()) {
            Take(folder.path + L'\\' + folder.reader.Entry().cFileName, folder.reader.Entry());
            return;
        }
        ThrowIfFailed(folder.reader.Status());
        if (operation_ == FileOperation::kMove) list_.items.push_back({std::move(folder.path), true});
        open_.pop_back();
    }

    void Take(std::wstring path, const WIN32_FIND_DATAW& entry) {
        if (IsFolder(entry)) {
            if (operation_ == FileOperation::kMove && IsLink(entry)) RefuseLink();
            Enter(std::move(path));
            return;
        }
        const ULARGE_INTEGER size = {{entry.nFileSizeLow, entry.nFileSizeHigh}};
        // A copy reads the target of a link.
        const ULONGLONG counted = IsLink(entry) ? CountedSize(source_ + path) : size.QuadPart;
        AddFile(std::move(path), counted);
    }

    void AddFile(std::wstring path, ULONGLONG size) {
        list_.total += size;
        list_.items.push_back({std::move(path), false});
    }

    const std::wstring& source_;
    FileOperation operation_;
    std::vector<Folder> open_;
    WorkList list_;
};

}  // namespace

WorkList CollectWork(const std::wstring& source, FileOperation operation) {
    return Collector(source, operation).Collect();
}

// Opening a file to query its size would cost more than copying a small one.
ULONGLONG CountedSize(const std::wstring& path) {
    constexpr ULONGLONG kUnknown = ~ULONGLONG{0};
    WIN32_FILE_ATTRIBUTE_DATA entry = {};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &entry)) return kUnknown;
    // A link's own size is 0.
    if (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) return FileSize(path).value_or(kUnknown);
    return ULARGE_INTEGER{{entry.nFileSizeLow, entry.nFileSizeHigh}}.QuadPart;
}

}  // namespace tarvik
