#include "plugins/window/name_buffer.h"

#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <algorithm>

#include "base/path.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

namespace {

// The result of a dialog message that takes the length of a buffer and the buffer.
std::wstring QueryDialog(HWND dialog, UINT message) {
    const LRESULT length = SendMessageW(dialog, message, 0, 0);
    if (length <= 0) return {};
    std::wstring text(static_cast<size_t>(length), L'\0');
    SendMessageW(dialog, message, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(wcslen(text.c_str()));
    return text;
}

// The names in a text like "a.txt" "b.txt". A single name is not quoted.
std::vector<std::wstring> QuotedNames(const std::wstring& text) {
    std::vector<std::wstring> names;
    size_t open = text.find(L'"');
    while (open != std::wstring::npos) {
        const size_t close = text.find(L'"', open + 1);
        if (close == std::wstring::npos) break;
        names.push_back(text.substr(open + 1, close - open - 1));
        open = text.find(L'"', close + 1);
    }
    return names;
}

bool IsShortcut(const std::wstring& path) {
    SHFILEINFOW info = {};
    info.dwAttributes = SFGAO_LINK;
    return SHGetFileInfoW(path.c_str(), 0, &info, sizeof info, SHGFI_ATTRIBUTES | SHGFI_ATTR_SPECIFIED) &&
           (info.dwAttributes & SFGAO_LINK) != 0;
}

std::wstring TargetOf(const std::wstring& shortcut) {
    ComPtr<IShellLinkW> link;
    CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                     reinterpret_cast<void**>(link.GetAddressOf()));
    const auto file = Query<IPersistFile>(link.Get());
    if (!file || FAILED(file->Load(shortcut.c_str(), STGM_READ))) return {};
    return ReadPath([&](wchar_t* buffer) { link->GetPath(buffer, kPathLength, nullptr, 0); });
}

}  // namespace

// How much longer the target of a shortcut is than its name: the dialog returns the target.
size_t NameBuffer::ExtraLength(const std::wstring& path) {
    const auto [entry, isNew] = extraLengths_.try_emplace(path, 0);
    if (!isNew) return entry->second;
    for (const std::wstring& file : {path, path + L".lnk"}) {  // the dialog hides this extension
        if (!IsShortcut(file)) continue;
        const size_t target = TargetOf(file).size();
        const size_t name = path.size() - path.rfind(L'\\') - 1;
        entry->second = target > name ? target - name : 0;
        break;
    }
    return entry->second;
}

void NameBuffer::Fit(HWND dialog) {
    const std::wstring folder = QueryDialog(dialog, CDM_GETFOLDERPATH);
    const std::wstring names = QueryDialog(dialog, CDM_GETSPEC);
    size_t size = folder.size() + names.size() + 3;  // with the terminators of both and of the list
    for (const std::wstring& name : QuotedNames(names))
        size += ExtraLength(folder + L'\\' + name);
    if (size > Size()) buffer_.resize(size + kTypedLength);
}

// The buffer holds one full path, or a folder and the names in it. Each ends in a NUL; another NUL ends the
// list.
std::vector<std::wstring> NameBuffer::Paths() const {
    const std::wstring folder = buffer_.data();
    std::vector<std::wstring> paths;
    const wchar_t* name = buffer_.data() + folder.size() + 1;
    if (!*name) paths.push_back(folder);
    for (; *name; name += wcslen(name) + 1) {
        // The target of a shortcut is a full path. By design the root of a drive yields two backslashes.
        paths.push_back(PathIsRelativeW(name) ? folder + L'\\' + name : std::wstring(name));
    }
    const auto tooLong = [](const std::wstring& path) { return path.size() >= kPathLength; };
    paths.erase(std::ranges::find_if(paths, tooLong), paths.end());
    return paths;
}

}  // namespace tarvik
