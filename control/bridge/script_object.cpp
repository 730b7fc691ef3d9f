#include "control/bridge/script_object.h"

#include <algorithm>

#include "tarvik/bstr.h"
#include "tarvik/status.h"
#include "control/bridge/script_source.h"

namespace tarvik {

namespace {

constexpr HRESULT kErrorReported = static_cast<HRESULT>(0x80020101);  // SCRIPT_E_REPORTED

const VARIANT* NamedArgument(const DISPPARAMS& parameters, DISPID id) {
    for (UINT i = 0; i < parameters.cNamedArgs; ++i) {
        if (parameters.rgdispidNamedArgs[i] == id) return &parameters.rgvarg[i];
    }
    return nullptr;
}

HRESULT Fail(const ScriptWorld::Outcome& outcome, EXCEPINFO* exception) {
    if (!exception) return kErrorReported;
    *exception = {};
    exception->scode = outcome.number;
    exception->bstrDescription = Bstr(outcome.message).Detach();
    return DISP_E_EXCEPTION;
}

}  // namespace

STDMETHODIMP ScriptObject::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP ScriptObject::GetIDsOfNames(REFIID, LPOLESTR* given, UINT count, LCID, DISPID* ids) {
    if (!given || !ids || count == 0) return E_INVALIDARG;
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const HRESULT status = FindName(given[0], &ids[0]);
    // Arguments have no names in script.
    return SUCCEEDED(status) && count > 1 ? DISP_E_UNKNOWNNAME : status;
}

HRESULT ScriptObject::FindName(const wchar_t* name, DISPID* id) {
    return Guard([&] {
        if (!world_->Has(number_, name)) return DISP_E_UNKNOWNNAME;
        *id = world_->Names().IdOf(name);
        return S_OK;
    });
}

STDMETHODIMP ScriptObject::GetDispID(BSTR name, DWORD flags, DISPID* out) {
    if (!out || !name) return E_INVALIDARG;
    if (!(flags & fdexNameEnsure)) return FindName(name, out);
    // The property comes to be with its first value.
    return Guard([&] { *out = world_->Names().IdOf(Bstr::View(name)); });
}

STDMETHODIMP ScriptObject::Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* parameters,
                                  VARIANT* result, EXCEPINFO* exception, UINT*) {
    return InvokeEx(id, locale, flags, parameters, result, exception, nullptr);
}

STDMETHODIMP ScriptObject::InvokeEx(DISPID id, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                    EXCEPINFO* exception, IServiceProvider*) {
    const ComPtr<IUnknown> alive(AsUnknown());
    static const DISPPARAMS kNone = {};
    return Guard([&]() -> HRESULT {
        const std::wstring* const name = world_->Names().NameOf(id);
        if (id != DISPID_VALUE && !name) return DISP_E_MEMBERNOTFOUND;
        const bool isRead = name && !(flags & DISPATCH_METHOD) && (flags & DISPATCH_PROPERTYGET) != 0;
        if (const Variant* const known = isRead ? world_->KnownValue(number_, *name) : nullptr) {
            if (result) Variant::Copy(*known).MoveInto(result);
            return S_OK;
        }
        world_->CheckReachable();
        ScriptWorld::Task task = TaskFor(id, flags, parameters ? *parameters : kNone);
        task.reportErrors = !exception;
        auto outcome = world_->Run(task);
        if (outcome.kind == ScriptWorld::Outcome::Kind::kError) return Fail(outcome, exception);
        if (result) outcome.value.MoveInto(result);
        return S_OK;
    });
}

ScriptWorld::Task ScriptObject::TaskFor(DISPID id, WORD flags, const DISPPARAMS& parameters) {
    ScriptWorld::Task task = {.name = "get", .object = number_};
    if (id != DISPID_VALUE) task.member = ScriptText(*world_->Names().NameOf(id));
    if (flags & DISPATCH_CONSTRUCT) {
        task.name = "new";
        task.arguments = Arguments(parameters);
    } else if (flags & DISPATCH_METHOD) {
        task.name = id == DISPID_VALUE ? "call" : "member";
        const VARIANT* self = NamedArgument(parameters, DISPID_THIS);
        if (id == DISPID_VALUE && self) task.member = world_->Write(*self);
        task.arguments = Arguments(parameters);
    } else if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        if (id == DISPID_VALUE || parameters.cArgs == 0) throw StatusError(E_INVALIDARG);
        task.name = "set";
        task.arguments = world_->Write(parameters.rgvarg[0]);
    } else if (id == DISPID_VALUE) {
        task.name = "text";
    }
    return task;
}

// In script order. Named arguments come first in the list and are no arguments of script.
std::string ScriptObject::Arguments(const DISPPARAMS& parameters) {
    std::string text;
    for (UINT i = parameters.cArgs; i > parameters.cNamedArgs; --i)
        text += (text.empty() ? "" : ",") + world_->Write(parameters.rgvarg[i - 1]);
    return text;
}

STDMETHODIMP ScriptObject::DeleteMemberByName(BSTR name, DWORD) {
    return name ? Delete(std::wstring(Bstr::View(name))) : E_INVALIDARG;
}

STDMETHODIMP ScriptObject::DeleteMemberByDispID(DISPID id) {
    const std::wstring* const name = world_->Names().NameOf(id);
    return name ? Delete(*name) : DISP_E_MEMBERNOTFOUND;
}

HRESULT ScriptObject::Delete(const std::wstring& name) {
    return Guard([&] {
        const auto outcome = world_->Run(
            {.name = "delete", .object = number_, .member = ScriptText(name), .reportErrors = false});
        return outcome.value.Is(VT_BOOL) && outcome.value.boolVal ? S_OK : S_FALSE;
    });
}

STDMETHODIMP ScriptObject::GetMemberProperties(DISPID id, DWORD wanted, DWORD* properties) {
    if (!properties) return E_INVALIDARG;
    *properties = 0;
    if (id != DISPID_VALUE) return E_NOTIMPL;
    *properties = wanted & (callable_ ? fdexPropCanCall | fdexPropCanConstruct : fdexPropCannotCall);
    return S_OK;
}

STDMETHODIMP ScriptObject::GetMemberName(DISPID id, BSTR* out) {
    if (!out) return E_INVALIDARG;
    *out = nullptr;
    const std::wstring* const name = world_->Names().NameOf(id);
    if (!name) return DISP_E_UNKNOWNNAME;
    return Guard([&] { *out = Bstr(*name).Detach(); });
}

STDMETHODIMP ScriptObject::GetNextDispID(DWORD, DISPID id, DISPID* out) {
    if (!out) return E_INVALIDARG;
    return Guard([&] {
        if (id == DISPID_STARTENUM) {
            const auto outcome = world_->Run({.name = "keys", .object = number_, .reportErrors = false});
            walk_.clear();
            for (const std::wstring& name : outcome.names)
                walk_.push_back(world_->Names().IdOf(name));
        }
        const auto here = id == DISPID_STARTENUM ? walk_.begin() : std::ranges::find(walk_, id);
        const auto next = here == walk_.end() || id == DISPID_STARTENUM ? here : here + 1;
        if (next == walk_.end()) return S_FALSE;
        *out = *next;
        return S_OK;
    });
}

}  // namespace tarvik
