#pragma once

#include <windows.h>
#include <oaidl.h>

#include <span>
#include <string_view>

#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"
#include "tarvik/member_table.h"
#include "tarvik/status.h"

namespace tarvik {

// The one name that GetIDsOfNames looks at: members have no named arguments. Null if there is none.
inline const wchar_t* FirstName(LPOLESTR* names, UINT count) {
    return names && count > 0 ? names[0] : nullptr;
}

// IDispatch over a member table. Self has `static std::span<const Member<Self>> Members()`, with rising ids.
// Base is a ComObject with IDispatch among its interfaces. Rules states what the objects of one family have
// in common; LibraryRules (tarvik/plugin.h) is the simplest:
//     static HRESULT GetTypeInfoCount(UINT* count)
//     static HRESULT GetTypeInfo(UINT index, LCID locale, ITypeInfo** out)
//     static bool SameName(std::wstring_view given, std::wstring_view member)
//     static HRESULT UnknownName(const wchar_t* name)    the status for it
//     static HRESULT Invoke(const Member<Self>* row, Self& self, WORD flags, const Call& call)
//                                                        `row` is null for an unknown id; may throw
template <class Self, class Rules, class Base>
class Dispatch : public Base {
  public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return Rules::GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** out) override {
        return Rules::GetTypeInfo(index, locale, out);
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        const wchar_t* const name = FirstName(names, count);
        if (!name || !ids) return E_INVALIDARG;
        return Guard([&] {
            const std::wstring_view given = name;
            for (const Member<Self>& row : Self::Members()) {
                if (!Rules::SameName(given, row.name)) continue;
                ids[0] = row.id;
                return S_OK;
            }
            return Rules::UnknownName(name);
        });
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        // A callback made by the member may drop script's last reference.
        const ComPtr<IUnknown> alive(this->AsUnknown());
        return Guard([&] {
            return Rules::Invoke(FindById(Self::Members(), id), static_cast<Self&>(*this), flags,
                                 Call(parameters, result));
        });
    }
};

}  // namespace tarvik
