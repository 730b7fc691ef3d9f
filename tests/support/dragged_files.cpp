#include "tests/support/dragged_files.h"

#include <shlobj.h>

#include <cstring>

namespace tarvik {

DraggedFiles::DraggedFiles(const std::vector<std::wstring>& paths) {
    for (const auto& path : paths)
        list_ += path + L'\0';
    list_ += L'\0';
}

STDMETHODIMP DraggedFiles::GetData(FORMATETC* format, STGMEDIUM* medium) {
    if (format->cfFormat != CF_HDROP || !(format->tymed & TYMED_HGLOBAL)) return DV_E_FORMATETC;
    const size_t bytes = list_.size() * sizeof(wchar_t);
    medium->tymed = TYMED_HGLOBAL;
    medium->hGlobal = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DROPFILES) + bytes);
    auto* const files = static_cast<DROPFILES*>(GlobalLock(medium->hGlobal));
    files->pFiles = sizeof(DROPFILES);
    files->fWide = TRUE;
    std::memcpy(files + 1, list_.data(), bytes);
    GlobalUnlock(medium->hGlobal);
    return S_OK;
}

}  // namespace tarvik
