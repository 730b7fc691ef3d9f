#include "plugins/file/work_list.h"

#include "base/folder_reader.h"
#include "tarvik/status.h"
#include "plugins/file/file_size.h"

namespace tarvik {

namespace {

// The folders that are open lie in a vector: paths may be nested deeper than a stack is long.
class Collector {
  public:
    Collector(const std::wstring& source, Transfer kind) : source_(source), kind_(kind) {}

    WorkList Run() {
        const DWORD attributes = GetFileAttributesW(source_.c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES) ThrowLastError();
        if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
            if (kind_ == Transfer::kMove && IsLink(source_)) RefuseLink();
            Enter({});
        } else {
            AddFile({}, SizeToCount(source_));
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

    // What is in a link's folder belongs elsewhere. It may be copied, but a move would empty that place.
    [[noreturn]] static void RefuseLink() { throw StatusError(HRESULT_FROM_WIN32(ERROR_NOT_SUPPORTED)); }

    void Enter(std::wstring path) {
        if (kind_ == Transfer::kCopy) list_.items.push_back({path, true});
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
        if (kind_ == Transfer::kMove) list_.items.push_back({std::move(folder.path), true});
        open_.pop_back();
    }

    void Take(std::wstring path, const WIN32_FIND_DATAW& entry) {
        if (IsFolder(entry)) {
            if (kind_ == Transfer::kMove && IsLink(entry)) RefuseLink();
            Enter(std::move(path));
            return;
        }
        const ULARGE_INTEGER size = {{entry.nFileSizeLow, entry.nFileSizeHigh}};
        // A copy reads the file that a link leads to.
        const ULONGLONG counted = IsLink(entry) ? SizeToCount(source_ + path) : size.QuadPart;
        AddFile(std::move(path), counted);
    }

    void AddFile(std::wstring path, ULONGLONG size) {
        list_.total += size;
        list_.items.push_back({std::move(path), false});
    }

    const std::wstring& source_;
    Transfer kind_;
    std::vector<Folder> open_;
    WorkList list_;
};

}  // namespace

WorkList CollectWork(const std::wstring& source, Transfer kind) {
    return Collector(source, kind).Run();
}

// Opening each file would cost more than a small file's copy.
ULONGLONG SizeToCount(const std::wstring& path) {
    constexpr ULONGLONG kUnknown = ~ULONGLONG{0};
    WIN32_FILE_ATTRIBUTE_DATA entry = {};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &entry)) return kUnknown;
    // The entry of a link has no size of its own.
    if (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) return FileSize(path).value_or(kUnknown);
    return ULARGE_INTEGER{{entry.nFileSizeLow, entry.nFileSizeHigh}}.QuadPart;
}

}  // namespace tarvik
