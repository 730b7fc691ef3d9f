#include "plugins/file/file_task.h"

#include <shlwapi.h>

#include <vector>

#include "base/path.h"

namespace tarvik {

namespace {

// `path` is empty or begins with a separator.
std::wstring JoinPath(const std::wstring& top, const std::wstring& path) {
    const bool hasSeparator = !path.empty() && top.ends_with(L'\\');
    return top.substr(0, top.size() - hasSeparator) + path;
}

// Ignores failures: the operation that needs the folder reports them.
void CreateFolders(const std::wstring& path) {
    std::vector<std::wstring> missing;
    for (auto folder = path; !folder.empty() && !PathFileExistsW(folder.c_str());
         folder = ParentFolder(folder))
        missing.push_back(folder);
    for (auto folder = missing.rbegin(); folder != missing.rend(); ++folder)
        CreateDirectoryW(folder->c_str(), nullptr);
}

}  // namespace

FileTask::FileTask(FileOperation operation, std::wstring src, std::wstring dest, const ScriptObject& options)
    : AsyncTask(options),
      operation_(operation),
      src_(std::move(src)),
      dest_(std::move(dest)),
      replaceExisting_(options.Get<bool>(L"replaceExisting", false)) {}

HRESULT FileTask::Work() {
    if (!PathFileExistsW(src_.c_str())) return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
    if (operation_ == FileOperation::kMove && PathIsSameRootW(src_.c_str(), dest_.c_str())) {
        Rename();
        return S_OK;
    }
    const WorkList list = CollectWork(src_, operation_);
    CopyProgress progress(Progress(), Context(), list.total);
    for (const WorkItem& item : list.items) {
        const std::wstring src = JoinPath(src_, item.path);
        const std::wstring dest = JoinPath(dest_, item.path);
        if (operation_ == FileOperation::kMove) CreateParentFolder(dest);
        if (item.isFolder) {
            TransferFolder(src, dest);
        } else {
            TransferFile(src, dest, progress);
        }
    }
    return S_OK;
}

void FileTask::Rename() const {
    const DWORD flags = replaceExisting_ ? MOVEFILE_REPLACE_EXISTING : 0;
    if (!MoveFileExW(src_.c_str(), dest_.c_str(), flags)) ThrowLastError();
}

void FileTask::TransferFolder(const std::wstring& src, const std::wstring& dest) const {
    if (!CreateDirectoryW(dest.c_str(), nullptr)) {
        const HRESULT status = LastFailureStatus();
        const DWORD attributes = GetFileAttributesW(dest.c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES) throw StatusError(status);
        if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) throw StatusError(E_FAIL);
    }
    if (operation_ == FileOperation::kMove && !RemoveDirectoryW(src.c_str())) ThrowLastError();
}

void FileTask::TransferFile(const std::wstring& src, const std::wstring& dest, CopyProgress& progress) const {
    const bool isCopy = operation_ == FileOperation::kCopy;
    const DWORD copyFlags = replaceExisting_ ? 0 : COPY_FILE_FAIL_IF_EXISTS;
    const DWORD moveFlags = MOVEFILE_COPY_ALLOWED | (replaceExisting_ ? MOVEFILE_REPLACE_EXISTING : 0);
    const BOOL done =
        isCopy ? CopyFileExW(src.c_str(), dest.c_str(), OnCopyProgress, &progress, nullptr, copyFlags)
               : MoveFileWithProgressW(src.c_str(), dest.c_str(), OnCopyProgress, &progress, moveFlags);
    if (!done) {
        if (GetLastError() == ERROR_REQUEST_ABORTED) throw StatusError(E_ABORT);
        ThrowLastError();
    }
    progress.FileFinished(dest);
}

void FileTask::CreateParentFolder(const std::wstring& path) {
    std::wstring folder = ParentFolder(path);
    if (folder == parentFolder_) return;
    CreateFolders(folder);
    parentFolder_ = std::move(folder);
}

}  // namespace tarvik
