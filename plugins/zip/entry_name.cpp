#include "plugins/zip/entry_name.h"

#include <shlwapi.h>

#include <algorithm>

#include "tarvik/status.h"

namespace tarvik {

namespace {

bool IsValidName(const std::wstring& name) {
    return !name.empty() && name.front() != L'/' && name.find(L':') == std::wstring::npos;
}

}  // namespace

std::wstring EntryName(const Source& source, bool isFolder) {
    const std::wstring& path = source.path;
    std::wstring name = path.size() == source.rootLength ? PathFindFileNameW(path.c_str())
                                                         : path.substr(source.rootLength + 1);
    if (isFolder) name += L'\\';
    std::ranges::replace(name, L'\\', L'/');
    if (!IsValidName(name)) throw StatusError(E_FAIL);
    return name;
}

}  // namespace tarvik
