#pragma once

#include <windows.h>
#include <oaidl.h>

#include "base/com_object.h"
#include "base/com_ptr.h"
#include "base/status.h"
#include "script/member_table.h"

namespace tarvik {

// The answers of small script objects, which have type information with nothing in it.
HRESULT OneTypeInfo(UINT* count);
HRESULT DefaultTypeInfo(UINT index, LCID locale, ITypeInfo** out);

// The one name that GetIDsOfNames looks at: members have no named arguments. Null if there is none.
inline const wchar_t* FirstName(LPOLESTR* names, UINT count) {
    return names && count > 0 ? names[0] : nullptr;
}

// A level 1 line with the label "Class::operation", or a level 16 one about a name the class does not have.
void TraceOperation(const char* className, const char* operation);
void LogUnknownName(const char* className, const wchar_t* name);

// The base of script objects that are no plug-ins.
class CDispatchBase : public ComObject<IDispatch> {
  public:
    // E_NOTIMPL for an unknown interface and E_INVALIDARG for a null pointer are intended here.
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override;
};

namespace detail {

template <class... Entries>
struct DispatchObject {
    static constexpr bool kHasOne = (std::is_base_of_v<IDispatch, typename Face<Entries>::Interface> || ...);
    using Type = std::conditional_t<kHasOne, ComObject<Entries...>, ComObject<Entries..., IDispatch>>;
};

template <>
struct DispatchObject<> {
    using Type = CDispatchBase;
};

}  // namespace detail

// ComObject with IDispatch at the end of its list, unless an entry stands on IDispatch already; without
// entries CDispatchBase.
template <class... Entries>
using DispatchObject = typename detail::DispatchObject<Entries...>::Type;

// IDispatch over a member table. Self has
//     static constexpr char kClassName[]                      its name in the log,
//     static std::span<const Member<Self>> Members()          its rows,
//     static constexpr bool kTracesCalls = true               only if its calls are to be traced,
// and derives from TableDispatch<Self, Entries of ComObject...>; the first entry is the identity.
template <class Self, class... Entries>
class TableDispatch : public DispatchObject<Entries...> {
  public:
    STDMETHODIMP GetTypeInfoCount(UINT*) override {
        TraceOperation(Self::kClassName, "GetTypeInfoCount");
        return E_NOTIMPL;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override {
        TraceOperation(Self::kClassName, "GetTypeInfo");
        return E_NOTIMPL;
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        const wchar_t* const name = FirstName(names, count);
        if (!name || !ids) return E_INVALIDARG;
        const auto* row = FindByName(Self::Members(), name);
        if (!row) {
            LogUnknownName(Self::kClassName, name);
            return DISP_E_UNKNOWNNAME;
        }
        ids[0] = row->id;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        if constexpr (requires { Self::kTracesCalls; }) TraceOperation(Self::kClassName, "Invoke");
        const auto* row = FindById(Self::Members(), id);
        if (!row) return E_NOTIMPL;
        // A callback made by the member may drop script's last reference.
        const ComPtr<IUnknown> alive(this->AsUnknown());
        return Guard(
            [&] { return InvokeRow(*row, static_cast<Self&>(*this), flags, Call(parameters, result)); });
    }
};

// One member of a small script object, which looks at the access flags itself.
template <class Self>
struct SmallMember {
    DISPID id;
    const wchar_t* name;
    HRESULT (Self::*handler)(WORD flags, const Call& call);
};

using SameName = bool (*)(const wchar_t* given, const wchar_t* member);
bool SameCharacters(const wchar_t* given, const wchar_t* member);
// The system's string comparison in the user's locale; an empty name matches nothing.
bool SameInLocale(const wchar_t* given, const wchar_t* member);

// IDispatch of a small plug-in: like TableDispatch, with rows of SmallMember. Unknown names and ids are both
// DISP_E_UNKNOWNNAME, and no line is logged.
template <class Self, SameName kSame, class... Entries>
class SmallDispatch : public ComObject<Entries..., IDispatch> {
  public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return OneTypeInfo(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** out) override {
        return DefaultTypeInfo(index, locale, out);
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        const wchar_t* const name = FirstName(names, count);
        if (!name || !ids) return E_INVALIDARG;
        return Guard([&] {
            for (const auto& member : Self::Members()) {
                if (!kSame(name, member.name)) continue;
                ids[0] = member.id;
                return S_OK;
            }
            return DISP_E_UNKNOWNNAME;
        });
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        for (const auto& member : Self::Members()) {
            if (member.id != id) continue;
            const ComPtr<IUnknown> alive(this->AsUnknown());
            auto& self = static_cast<Self&>(*this);
            return Guard([&] { return (self.*member.handler)(flags, Call(parameters, result)); });
        }
        return DISP_E_UNKNOWNNAME;
    }
};

}  // namespace tarvik
