#include "plugins/system/self_registration.h"

#include <shlwapi.h>

#include "base/library_search.h"
#include "base/path.h"
#include "tarvik/status.h"

namespace tarvik {

HRESULT CallRegistration(const std::wstring& path, const char* function) {
    if (!PathFileExistsW(path.c_str())) return E_INVALIDARG;
    // With a relative path the loader would search other folders, too.
    const UniqueModule library = LoadLibraryByPath(FullPath(path));
    if (!library) return LastFailureStatus();
    using Registration = HRESULT STDAPICALLTYPE();
    const FARPROC found = GetProcAddress(library.Get(), function);
    if (!found) return E_FAIL;
    return reinterpret_cast<Registration*>(reinterpret_cast<void*>(found))();
}

}  // namespace tarvik
