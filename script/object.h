#pragma once

#include <windows.h>
#include <dispex.h>

#include <map>
#include <string>

#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

// The native script object: a map of named properties, which are created on demand and cannot be deleted. It
// cannot be called. One thread at a time may use it; only the main thread may create properties.
class CObject : public ComObject<As<IDispatchEx, IDispatchEx, IDispatch>> {
  public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** out) override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override;

    // By design, fdexNameEnsure gives S_FALSE and no id for a name that exists. To overwrite a property, get
    // its id from GetIDsOfNames.
    STDMETHODIMP GetDispID(BSTR name, DWORD flags, DISPID* out) override;
    STDMETHODIMP InvokeEx(DISPID id, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                          EXCEPINFO* exception, IServiceProvider* caller) override;
    STDMETHODIMP DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
    STDMETHODIMP GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP GetMemberName(DISPID id, BSTR* out) override;
    // By design, enumerates the newest property first, because new ids are lower: so the elements of an array
    // come from the highest index down.
    STDMETHODIMP GetNextDispID(DWORD flags, DISPID id, DISPID* out) override;
    STDMETHODIMP GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

    size_t Count() const { return values_.size(); }

  private:
    struct Property {
        const std::wstring* name;  // the key in names_; enumerations of large arrays query every name
        Variant value;
    };
    std::map<std::wstring, DISPID, std::less<>> names_;
    std::map<DISPID, Property> values_;
};

// The script array: a CObject whose elements are the properties "0", "1" and so on, with push and length.
class CArray : public CObject {
  public:
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

    // Appends an element, named by the number of properties. By design, the value is dropped if that property
    // exists.
    void Push(const VARIANT* value);
};

// Implements TVK::ICore::CreateScriptObject.
HRESULT CreateScriptObject(const wchar_t* typeName, IDispatch** out);

}  // namespace tarvik
