#include "page_control/drag/data_object.h"

#include <shlobj.h>

#include <cstring>

#include "tarvik/status.h"

namespace tarvik {

namespace {

FORMATETC InMemory(UINT format) {
    return {static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

// Owner of a medium that a data object has returned.
class Medium {
  public:
    explicit Medium(const STGMEDIUM& medium) : medium_(medium), bytes_(GlobalLock(medium.hGlobal)) {}
    ~Medium() {
        if (bytes_) GlobalUnlock(medium_.hGlobal);
        ReleaseStgMedium(&medium_);
    }
    Medium(const Medium&) = delete;
    Medium& operator=(const Medium&) = delete;

    std::vector<BYTE> Bytes() const {
        const auto* const first = static_cast<const BYTE*>(bytes_);
        return first ? std::vector(first, first + GlobalSize(medium_.hGlobal)) : std::vector<BYTE>();
    }

  private:
    STGMEDIUM medium_;
    void* bytes_;
};

}  // namespace

void DataObject::Add(UINT format, const void* bytes, size_t size) {
    const auto* const first = static_cast<const BYTE*>(bytes);
    entries_.push_back({InMemory(format), {first, first + size}});
}

const DataObject::Entry* DataObject::Find(const FORMATETC& format) const {
    for (const Entry& entry : entries_) {
        if (entry.format.cfFormat == format.cfFormat && (format.tymed & TYMED_HGLOBAL) &&
            format.dwAspect == DVASPECT_CONTENT)
            return &entry;
    }
    return nullptr;
}

STDMETHODIMP DataObject::GetData(FORMATETC* format, STGMEDIUM* medium) {
    if (!format || !medium) return E_POINTER;
    const Entry* const entry = Find(*format);
    if (!entry) return DV_E_FORMATETC;
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, entry->bytes.size());
    if (!memory) return E_OUTOFMEMORY;
    std::memcpy(GlobalLock(memory), entry->bytes.data(), entry->bytes.size());
    GlobalUnlock(memory);
    *medium = {};
    medium->tymed = TYMED_HGLOBAL;
    medium->hGlobal = memory;
    return S_OK;
}

STDMETHODIMP DataObject::QueryGetData(FORMATETC* format) {
    if (!format) return E_POINTER;
    return Find(*format) ? S_OK : DV_E_FORMATETC;
}

STDMETHODIMP DataObject::GetCanonicalFormatEtc(FORMATETC*, FORMATETC* out) {
    if (!out) return E_POINTER;
    out->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
}

STDMETHODIMP DataObject::EnumFormatEtc(DWORD direction, IEnumFORMATETC** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (direction != DATADIR_GET) return E_NOTIMPL;
    return Guard([&] {
        std::vector<FORMATETC> formats;
        for (const Entry& entry : entries_)
            formats.push_back(entry.format);
        return SHCreateStdEnumFmtEtc(static_cast<UINT>(formats.size()), formats.data(), out);
    });
}

std::vector<BYTE> DataOf(IDataObject* object, UINT format) {
    FORMATETC wanted = InMemory(format);
    STGMEDIUM medium = {};
    if (object->GetData(&wanted, &medium) != S_OK) return {};
    return Medium(medium).Bytes();
}

bool HasData(IDataObject* object, UINT format) {
    FORMATETC wanted = InMemory(format);
    return object->QueryGetData(&wanted) == S_OK;
}

}  // namespace tarvik
