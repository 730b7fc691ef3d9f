#include "plugins/file/file_plugin.h"

#include <shellapi.h>
#include <shlwapi.h>

#include "base/folder_reader.h"
#include "base/path.h"
#include "plugins/file/delete_path.h"
#include "plugins/file/enum_files.h"
#include "plugins/file/file_size.h"
#include "plugins/file/file_task.h"

namespace tarvik {

namespace {

[[maybe_unused]] const bool registered = RegisterBuiltIn<CFilePlugin>(L"file", TVK::kRetainedPlugin);

constexpr Member<CFilePlugin> kMembers[] = {
    Method<&CFilePlugin::IsFileExist>(L"isFileExist", -10000),
    Method<&CFilePlugin::DeleteFile>(L"deleteFile", -9999),
    Method<&CFilePlugin::Copy>(L"copy", -9998),
    Method<&CFilePlugin::CopyAsync>(L"copyAsync", -9997),
    Method<&CFilePlugin::Move>(L"move", -9996),
    Method<&CFilePlugin::MoveAsync>(L"moveAsync", -9995),
    Method<&CFilePlugin::MkDir>(L"mkDir", -9994),
    Method<&CFilePlugin::EnumFiles>(L"enumFiles", -9993),
    Method<&CFilePlugin::GetSize>(L"getSize", -9992),
    Method<&CFilePlugin::IsDir>(L"isDir", -9991),
    Method<&CFilePlugin::IsDirEmpty>(L"isDirEmpty", -9990),
};
static_assert(IsInOrder(kMembers));

// SHFileOperationW reads names up to an empty one, into buffers of MAX_PATH characters. It takes an empty
// list for the current folder.
std::wstring PathList(std::wstring path) {
    if (path.empty() || path.size() >= kPathLength) throw StatusError(E_INVALIDARG);
    path += L'\0';
    return path;
}

// Without prompts, progress windows and error messages.
HRESULT RunShellOperation(UINT operation, const std::wstring& src, const std::wstring& dest) {
    return Guard([&] {
        const std::wstring from = PathList(src), to = PathList(dest);
        SHFILEOPSTRUCTW request = {};
        request.wFunc = operation;
        request.pFrom = from.c_str();
        request.pTo = to.c_str();
        request.fFlags = FOF_SILENT | FOF_NOCONFIRMATION | FOF_NOCONFIRMMKDIR | FOF_NOERRORUI;
        return SHFileOperationW(&request) == 0 && !request.fAnyOperationsAborted ? S_OK : E_FAIL;
    });
}

}  // namespace

std::span<const Member<CFilePlugin>> CFilePlugin::Members() {
    return kMembers;
}

// An empty path stays empty: resolved, it would be the page's own folder, and deleteFile would delete that.
std::wstring CFilePlugin::PathOf(std::wstring_view path) const {
    return path.empty() ? std::wstring() : Resolve(std::wstring(path));
}

bool CFilePlugin::IsFileExist(BSTR path) {
    return PathFileExistsW(PathOf(Bstr::View(path)).c_str()) != FALSE;
}

Outcome CFilePlugin::DeleteFile(BSTR path, std::optional<bool> delayed) {
    return {DeletePath(PathOf(Bstr::View(path)), delayed.value_or(false))};
}

Outcome CFilePlugin::Copy(BSTR src, BSTR dest) {
    return {RunShellOperation(FO_COPY, PathOf(Bstr::View(src)), PathOf(Bstr::View(dest)))};
}

Outcome CFilePlugin::Move(BSTR src, BSTR dest) {
    return {RunShellOperation(FO_MOVE, PathOf(Bstr::View(src)), PathOf(Bstr::View(dest)))};
}

bool CFilePlugin::CopyAsync(IDispatch* options) {
    return Start(FileOperation::kCopy, options);
}

bool CFilePlugin::MoveAsync(IDispatch* options) {
    return Start(FileOperation::kMove, options);
}

bool CFilePlugin::Start(FileOperation operation, IDispatch* options) const {
    return StartTask(options, [&](const ScriptObject& given) {
        std::wstring src = PathOf(given.Get<std::wstring>(L"srcPath", {}));
        std::wstring dest = PathOf(given.Get<std::wstring>(L"destPath", {}));
        if (src.empty() || dest.empty()) throw StatusError(E_INVALIDARG);
        return std::make_unique<FileTask>(operation, std::move(src), std::move(dest), given);
    });
}

bool CFilePlugin::MkDir(BSTR path) {
    return CreateDirectoryW(PathOf(Bstr::View(path)).c_str(), nullptr) != FALSE;
}

// A wrong argument fails only if the caller wants a result; required by the contract.
HRESULT CFilePlugin::EnumFiles(const Call& call) {
    if (call.Count() == 0) return E_INVALIDARG;
    IDispatch* options = nullptr;
    if (FromVariant(call.At(0), options) && options) return StartEnumFiles(options);
    return call.Result() ? E_INVALIDARG : S_OK;
}

Variant CFilePlugin::GetSize(BSTR path) {
    const auto size = FileSize(PathOf(Bstr::View(path)));
    return size ? Variant::I8(static_cast<LONGLONG>(*size)) : Variant();
}

bool CFilePlugin::IsDir(BSTR path) {
    return PathIsDirectoryW(PathOf(Bstr::View(path)).c_str()) != FALSE;
}

// By design the path itself is the search pattern. Without a wildcard it finds the folder in its parent, so
// the result is false even for an empty folder; a path that ends in "\." finds only the dot entry, so the
// result is true.
bool CFilePlugin::IsDirEmpty(BSTR path) {
    const std::wstring folder = PathOf(Bstr::View(path));
    if (folder.empty() || !PathIsDirectoryW(folder.c_str())) return false;
    // Wine finds the folder by this pattern.
    if (folder.ends_with(L"\\.")) return true;
    FolderReader reader(folder);
    return SUCCEEDED(reader.Status()) && !reader.Next();
}

}  // namespace tarvik
