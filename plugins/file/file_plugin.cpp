#include "plugins/file/file_plugin.h"

#include <shellapi.h>
#include <shlwapi.h>

#include <limits>

#include "base/folder_reader.h"
#include "base/text.h"
#include "plugins/file/delete_path.h"
#include "plugins/file/enum_files.h"
#include "plugins/file/file_size.h"
#include "plugins/file/file_task.h"

namespace tarvik {

namespace {

[[maybe_unused]] const bool registered = RegisterBuiltIn<CFilePlugin>(L"file", TVK::kRetainedPlugin);

constexpr size_t kAnyCount = std::numeric_limits<size_t>::max();

constexpr Member<CFilePlugin> kMembers[] = {
    Method<&CFilePlugin::IsFileExist>(-10000, L"isFileExist"),
    Method<&CFilePlugin::DeleteFile>(-9999, L"deleteFile"),
    Method<&CFilePlugin::Copy>(-9998, L"copy"),
    Method<&CFilePlugin::CopyAsync>(-9997, L"copyAsync"),
    Method<&CFilePlugin::Move>(-9996, L"move"),
    Method<&CFilePlugin::MoveAsync>(-9995, L"moveAsync"),
    Method<&CFilePlugin::MkDir>(-9994, L"mkDir"),
    RawMethod<&CFilePlugin::EnumFiles, 0, kAnyCount>(-9993, L"enumFiles"),
    Method<&CFilePlugin::GetSize>(-9992, L"getSize"),
    Method<&CFilePlugin::IsDir>(-9991, L"isDir"),
    Method<&CFilePlugin::IsDirEmpty>(-9990, L"isDirEmpty"),
};
static_assert(IsInOrder(kMembers));

// The shell reads names until an empty one, into buffers of the usual length; no name at all means the
// current folder to it.
std::wstring AsList(std::wstring path) {
    if (path.empty() || path.size() >= kPathLength) throw StatusError(E_INVALIDARG);
    path += L'\0';
    return path;
}

// No question and no report: one answer.
HRESULT RunShell(UINT operation, const std::wstring& src, const std::wstring& dest) {
    return Guard([&] {
        const std::wstring from = AsList(src), to = AsList(dest);
        SHFILEOPSTRUCTW task = {};
        task.wFunc = operation;
        task.pFrom = from.c_str();
        task.pTo = to.c_str();
        task.fFlags = FOF_SILENT | FOF_NOCONFIRMATION | FOF_NOCONFIRMMKDIR | FOF_NOERRORUI;
        return SHFileOperationW(&task) == 0 && !task.fAnyOperationsAborted ? S_OK : E_FAIL;
    });
}

}  // namespace

std::span<const Member<CFilePlugin>> CFilePlugin::Members() {
    return kMembers;
}

// Nothing stays nothing: made absolute it would be the page's own folder, which nobody meant to delete.
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
    return {RunShell(FO_COPY, PathOf(Bstr::View(src)), PathOf(Bstr::View(dest)))};
}

Outcome CFilePlugin::Move(BSTR src, BSTR dest) {
    return {RunShell(FO_MOVE, PathOf(Bstr::View(src)), PathOf(Bstr::View(dest)))};
}

bool CFilePlugin::CopyAsync(IDispatch* options) {
    return Start(Transfer::kCopy, options);
}

bool CFilePlugin::MoveAsync(IDispatch* options) {
    return Start(Transfer::kMove, options);
}

bool CFilePlugin::Start(Transfer kind, IDispatch* options) const {
    return StartTask(options, [&](const Options& given) {
        std::wstring src = PathOf(given.Text(L"srcPath").value_or(std::wstring()));
        std::wstring dest = PathOf(given.Text(L"destPath").value_or(std::wstring()));
        if (src.empty() || dest.empty()) throw StatusError(E_INVALIDARG);
        return std::make_unique<FileTask>(kind, std::move(src), std::move(dest), given);
    });
}

bool CFilePlugin::MkDir(BSTR path) {
    return CreateDirectoryW(PathOf(Bstr::View(path)).c_str(), nullptr) != FALSE;
}

// A wrong argument is an error only for who asks for a result; that is intended.
HRESULT CFilePlugin::EnumFiles(const Call& call) {
    if (call.Count() == 0) return E_INVALIDARG;
    IDispatch* options = nullptr;
    if (FromVariant(call.At(0), options) && options) return StartEnumFiles(Options(options));
    return call.Result() ? E_INVALIDARG : S_OK;
}

Variant CFilePlugin::GetSize(BSTR path) {
    const auto size = FileSize(PathOf(Bstr::View(path)));
    return size ? Variant::I8(static_cast<LONGLONG>(*size)) : Variant();
}

bool CFilePlugin::IsDir(BSTR path) {
    return PathIsDirectoryW(PathOf(Bstr::View(path)).c_str()) != FALSE;
}

// The path is looked for as it stands. A plain one finds the folder itself, under its own name, so its answer
// is false whatever the folder holds, and one that ends in a dot finds nothing but the dot; that is intended.
bool CFilePlugin::IsDirEmpty(BSTR path) {
    const std::wstring folder = PathOf(Bstr::View(path));
    if (folder.empty() || !PathIsDirectoryW(folder.c_str())) return false;
    // Wine finds it by its name even so.
    if (folder.ends_with(L"\\.")) return true;
    FolderReader reader(folder);
    return SUCCEEDED(reader.Status()) && !reader.Next();
}

}  // namespace tarvik
