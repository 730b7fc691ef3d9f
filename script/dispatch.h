#pragma once

#include <windows.h>
#include <oaidl.h>

#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"
#include "tarvik/status.h"
#include "tarvik/dispatch.h"

namespace tarvik {

// The answers of small script objects, which have type information with nothing in it.
HRESULT OneTypeInfo(UINT* count);
HRESULT DefaultTypeInfo(UINT index, LCID locale, ITypeInfo** out);

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
    static constexpr bool kHasOne =
        (std::is_base_of_v<IDispatch, typename InterfaceEntry<Entries>::Interface> || ...);
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

// The rules of the larger plug-ins and their objects. Self has `static constexpr char kClassName[]`, its name
// in the log, and `static constexpr bool kTracesCalls = true` only if its calls are to be traced.
template <class Self>
struct TableRules {
    static HRESULT GetTypeInfoCount(UINT*) {
        TraceOperation(Self::kClassName, "GetTypeInfoCount");
        return E_NOTIMPL;
    }
    static HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) {
        TraceOperation(Self::kClassName, "GetTypeInfo");
        return E_NOTIMPL;
    }
    static bool SameName(std::wstring_view given, std::wstring_view member) { return given == member; }
    static HRESULT UnknownName(const wchar_t* name) {
        LogUnknownName(Self::kClassName, name);
        return DISP_E_UNKNOWNNAME;
    }
    static HRESULT Invoke(const Member<Self>* row, Self& self, WORD flags, const Call& call) {
        if constexpr (requires { Self::kTracesCalls; }) TraceOperation(Self::kClassName, "Invoke");
        return row ? InvokeMember(*row, self, flags, call) : E_NOTIMPL;
    }
};

// The rules of the small ones. They have type information, unknown names and ids are both DISP_E_UNKNOWNNAME,
// and nothing is logged.
struct SmallRules {
    static HRESULT GetTypeInfoCount(UINT* count) { return OneTypeInfo(count); }
    static HRESULT GetTypeInfo(UINT index, LCID locale, ITypeInfo** out) {
        return DefaultTypeInfo(index, locale, out);
    }
    static bool SameName(std::wstring_view given, std::wstring_view member) { return given == member; }
    static HRESULT UnknownName(const wchar_t*) { return DISP_E_UNKNOWNNAME; }
    template <class Self>
    static HRESULT Invoke(const Member<Self>* row, Self& self, WORD flags, const Call& call) {
        return row ? InvokeMember(*row, self, flags, call) : DISP_E_UNKNOWNNAME;
    }
};

// Those that do not look at the access: whatever is no read or write of a property is a call. Reads are
// tested first.
struct AnyAccessRules : SmallRules {
    template <class Self>
    static HRESULT Invoke(const Member<Self>* row, Self& self, WORD flags, const Call& call) {
        if (!row) return DISP_E_UNKNOWNNAME;
        if ((flags & DISPATCH_PROPERTYGET) && row->get) return row->get(self, call);
        if ((flags & DISPATCH_PROPERTYPUT) && row->put) return row->put(self, call);
        return row->method ? row->method(self, call) : E_FAIL;
    }
};

// The same, with names compared as the system compares words in the user's locale. An empty name matches
// none.
struct LocaleNameRules : AnyAccessRules {
    static bool SameName(std::wstring_view given, std::wstring_view member);
};

// IDispatch over a member table, with IDispatch at the end of the list of interfaces, unless an entry stands
// on it already. The first entry is the identity.
template <class Self, class... Entries>
using TableDispatch = Dispatch<Self, TableRules<Self>, DispatchObject<Entries...>>;

template <class Self, class Rules, class... Entries>
using SmallDispatch = Dispatch<Self, Rules, ComObject<Entries..., IDispatch>>;

}  // namespace tarvik
