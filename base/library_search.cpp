#include "base/library_search.h"

#include "base/module_function.h"

namespace tarvik {

void UseSystemLibrariesOnly() {
    SetDllDirectoryW(L"");
    // Missing on Windows 7 without the update KB2533623.
    if (auto* const set = FindFunction<BOOL WINAPI(DWORD)>(L"kernel32.dll", "SetDefaultDllDirectories"))
        set(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_USER_DIRS);
}

UniqueModule LoadLibraryByPath(const std::wstring& path) {
    return UniqueModule(LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
}

}  // namespace tarvik
