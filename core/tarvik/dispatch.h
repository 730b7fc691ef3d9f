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

// The member name among the names that GetIDsOfNames receives; null if there is none. Members have no named
// arguments, so the other names are ignored.
inline const wchar_t* FirstName(LPOLESTR* names, UINT count) {
    return names && count > 0 ? names[0] : nullptr;
}

// Implements IDispatch by a member table (tarvik/member_table.h). Plug-ins of libraries derive from Plugin
// instead (tarvik/library.h).
//     Self   the derived class; its `static std::span<const Member<Self>> Members()` returns the table.
//     Base   a ComObject with IDispatch among its interfaces.
//     Rules  a policy class, whose static functions state what a family of objects has in common:
//                HRESULT GetTypeInfoCount(UINT* count)
//                HRESULT GetTypeInfo(UINT index, LCID locale, ITypeInfo** out)
//                bool SameName(std::wstring_view given, std::wstring_view member)
//                HRESULT UnknownName(const wchar_t* name)
//                    returns the status for an unknown name
//                HRESULT Invoke(const Member<Self>* row, Self& self, WORD flags, const Call& call)
//                    `row` is null for an unknown id; may throw
//            LibraryRules (tarvik/library.h) is the simplest.
// An exception becomes the status of the call (CaughtStatus).
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
        // The member may call script, which may release its last reference to this object.
        const ComPtr<IUnknown> alive(this->AsUnknown());
        return Guard([&] {
            return Rules::Invoke(FindById(Self::Members(), id), static_cast<Self&>(*this), flags,
                                 Call(parameters, result));
        });
    }
};

}  // namespace tarvik
