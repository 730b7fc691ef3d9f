#pragma once

#include <windows.h>
#include <oaidl.h>

#include "script/arguments.h"
#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"
#include "tarvik/dispatch.h"
#include "tarvik/status.h"

namespace tarvik {

// GetTypeInfoCount and GetTypeInfo of objects with one empty type information.
HRESULT OneTypeInfo(UINT* count);
HRESULT DefaultTypeInfo(UINT index, LCID locale, ITypeInfo** out);

// Writes a trace line with the label "Class::operation".
void TraceOperation(const char* className, const char* operation);
// Writes an error line about a name that the class does not have.
void LogUnknownName(const char* className, const wchar_t* name);

// The base of script objects that are not plug-ins.
class CDispatchBase : public ComObject<IDispatch> {
  public:
    // By design, E_NOTIMPL for an unknown interface and E_INVALIDARG for a null pointer.
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

// ComObject with IDispatch appended to its list, unless an entry derives from IDispatch. CDispatchBase if
// there are no entries.
template <class... Entries>
using DispatchObject = typename detail::DispatchObject<Entries...>::Type;

// The rules of the larger plug-ins and their objects. Self defines `static constexpr char kClassName[]`, its
// name in the log, and `static constexpr bool kTracesCalls` to log its calls.
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

// The rules of the small plug-ins: they have type information, unknown names and ids give DISP_E_UNKNOWNNAME,
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

// SmallRules with lenient access: reads are tested first, and an access that is neither a read nor a write of
// a property calls the method.
struct AnyAccessRules : SmallRules {
    template <class Self>
    static HRESULT Invoke(const Member<Self>* row, Self& self, WORD flags, const Call& call) {
        if (!row) return DISP_E_UNKNOWNNAME;
        if ((flags & DISPATCH_PROPERTYGET) && row->get) return row->get(self, call);
        if ((flags & DISPATCH_PROPERTYPUT) && row->put) return row->put(self, call);
        return row->method ? row->method(self, call) : E_FAIL;
    }
};

// AnyAccessRules with names compared by the rules of the user's locale. An empty name matches no member.
struct LocaleNameRules : AnyAccessRules {
    static bool SameName(std::wstring_view given, std::wstring_view member);
};

// Dispatch (tarvik/dispatch.h) with the rules of the larger plug-ins. The first entry is the identity.
template <class Self, class... Entries>
using TableDispatch = Dispatch<Self, TableRules<Self>, DispatchObject<Entries...>>;

// The same for small plug-ins, with one of the other rules.
template <class Self, class Rules, class... Entries>
using SmallDispatch = Dispatch<Self, Rules, ComObject<Entries..., IDispatch>>;

}  // namespace tarvik
