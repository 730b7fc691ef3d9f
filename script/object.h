#pragma once

#include <windows.h>
#include <dispex.h>

#include <map>
#include <string>

#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

// The native script object: named properties that are made on demand and live as long as the object. One
// thread at a time. It cannot be called, and its properties cannot be deleted.
class CObject : public ComObject<As<IDispatchEx, IDispatchEx, IDispatch>> {
  public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** out) override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override;

    // With fdexNameEnsure a name that exists gives S_FALSE and no id; that is intended. Such a caller has no
    // way to overwrite: it asks GetIDsOfNames.
    STDMETHODIMP GetDispID(BSTR name, DWORD flags, DISPID* out) override;
    STDMETHODIMP InvokeEx(DISPID id, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                          EXCEPINFO* exception, IServiceProvider* caller) override;
    STDMETHODIMP DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
    STDMETHODIMP GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP GetMemberName(DISPID id, BSTR* out) override;
    // Visits the newest property first: ids fall with time, and the walk goes up. So the elements of an array
    // come from the highest index down; that is intended.
    STDMETHODIMP GetNextDispID(DWORD flags, DISPID id, DISPID* out) override;
    STDMETHODIMP GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

    size_t Count() const { return values_.size(); }

  private:
    struct Property {
        const std::wstring* name;  // the key in names_: walks over large arrays ask for every name
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

    // Adds an element under the number of properties so far. If a property of that name exists, the value is
    // lost without a word; that is intended.
    void Push(const VARIANT* value);
};

// "object" or "array", in any case of letters; E_NOINTERFACE for another name, E_INVALIDARG for a null
// pointer.
HRESULT CreateScriptObject(const wchar_t* typeName, IDispatch** out);

}  // namespace tarvik
