#pragma once

#include <windows.h>
#include <objidl.h>

#include <string_view>
#include <vector>

#include "tarvik/com_object.h"

namespace tarvik {

// The data of a drag in several clipboard formats, each in global memory.
class DataObject : public ComObject<IDataObject> {
  public:
    void Add(UINT format, const void* bytes, size_t size);

    STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) override;
    STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    STDMETHODIMP QueryGetData(FORMATETC* format) override;
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC*, FORMATETC* out) override;
    STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** out) override;
    STDMETHODIMP DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    STDMETHODIMP DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA**) override { return OLE_E_ADVISENOTSUPPORTED; }

  private:
    struct Entry {
        FORMATETC format;
        std::vector<BYTE> bytes;
    };
    const Entry* Find(const FORMATETC& format) const;

    std::vector<Entry> entries_;
};

// The bytes that any data object has in a format; empty if it has none. The memory may be larger than what
// was put there.
std::vector<BYTE> DataOf(IDataObject* object, UINT format);
bool HasData(IDataObject* object, UINT format);

}  // namespace tarvik
