#include "page_control/bridge/remote_object.h"

#include <algorithm>

#include "page_control/bridge/script_source.h"
#include "tarvik/bstr.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

using TaskName = protocol::Name<protocol::Kind::kTask>;

constexpr HRESULT kErrorReported = static_cast<HRESULT>(0x80020101);  // SCRIPT_E_REPORTED

const VARIANT* NamedArgument(const DISPPARAMS& parameters, DISPID id) {
    for (UINT i = 0; i < parameters.cNamedArgs; ++i) {
        if (parameters.rgdispidNamedArgs[i] == id) return &parameters.rgvarg[i];
    }
    return nullptr;
}

HRESULT Fail(const ScriptContext::Outcome& outcome, EXCEPINFO* exception) {
    if (!exception) return kErrorReported;
    *exception = {};
    exception->scode = outcome.number;
    exception->bstrDescription = Bstr(outcome.message).Detach();
    return DISP_E_EXCEPTION;
}

}  // namespace

STDMETHODIMP_(BOOL) RemoteObject::IsRunning() {
    bool running = false;
    return SUCCEEDED(Guard([&] { running = context_->CanRunScript(); })) && running;
}

STDMETHODIMP RemoteObject::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP RemoteObject::GetIDsOfNames(REFIID, LPOLESTR* given, UINT count, LCID, DISPID* ids) {
    if (!given || !ids || count == 0) return E_INVALIDARG;
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const HRESULT status = FindName(given[0], &ids[0]);
    // Script has no named arguments.
    return SUCCEEDED(status) && count > 1 ? DISP_E_UNKNOWNNAME : status;
}

HRESULT RemoteObject::FindName(const wchar_t* name, DISPID* id) {
    return Guard([&] {
        if (!context_->HasMember(number_, name)) return DISP_E_UNKNOWNNAME;
        *id = context_->Names().IdOf(name);
        return S_OK;
    });
}

STDMETHODIMP RemoteObject::GetDispID(BSTR name, DWORD flags, DISPID* out) {
    if (!out || !name) return E_INVALIDARG;
    if (!(flags & fdexNameEnsure)) return FindName(name, out);
    // The property is created with its first value.
    return Guard([&] { *out = context_->Names().IdOf(Bstr::View(name)); });
}

STDMETHODIMP RemoteObject::Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* parameters,
                                  VARIANT* result, EXCEPINFO* exception, UINT*) {
    return InvokeEx(id, locale, flags, parameters, result, exception, nullptr);
}

STDMETHODIMP RemoteObject::InvokeEx(DISPID id, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                    EXCEPINFO* exception, IServiceProvider*) {
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    static const DISPPARAMS kNone = {};
    return Guard([&]() -> HRESULT {
        const std::wstring* const name = context_->Names().NameOf(id);
        if (id != DISPID_VALUE && !name) return DISP_E_MEMBERNOTFOUND;
        const bool isRead = name && !(flags & DISPATCH_METHOD) && (flags & DISPATCH_PROPERTYGET) != 0;
        if (const Variant* const known = isRead ? context_->CachedValue(number_, *name) : nullptr) {
            if (result) Variant::Copy(*known).MoveInto(result);
            return S_OK;
        }
        context_->CheckReachable();
        ScriptContext::Task task = TaskFor(id, flags, parameters ? *parameters : kNone);
        task.reportErrors = !exception;
        auto outcome = context_->Run(task);
        if (outcome.type == ScriptContext::Outcome::Type::kError) return Fail(outcome, exception);
        if (result) outcome.value.MoveInto(result);
        return S_OK;
    });
}

ScriptContext::Task RemoteObject::TaskFor(DISPID id, WORD flags, const DISPPARAMS& parameters) {
    ScriptContext::Task task = {.name = "get", .object = number_};
    if (id != DISPID_VALUE) task.member = ScriptText(*context_->Names().NameOf(id));
    if (flags & DISPATCH_CONSTRUCT) {
        task.name = "new";
        task.arguments = Arguments(parameters);
    } else if (flags & DISPATCH_METHOD) {
        task.name = id == DISPID_VALUE ? TaskName("call") : TaskName("member");
        const VARIANT* self = NamedArgument(parameters, DISPID_THIS);
        if (id == DISPID_VALUE && self) task.member = context_->Write(*self);
        task.arguments = Arguments(parameters);
    } else if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        if (id == DISPID_VALUE || parameters.cArgs == 0) throw StatusError(E_INVALIDARG);
        task.name = "set";
        task.arguments = context_->Write(parameters.rgvarg[0]);
    } else if (id == DISPID_VALUE) {
        task.name = "text";
    }
    return task;
}

// In script order. Named arguments come first in the list and are not passed to script.
std::string RemoteObject::Arguments(const DISPPARAMS& parameters) {
    std::string text;
    for (UINT i = parameters.cArgs; i > parameters.cNamedArgs; --i)
        text += (text.empty() ? "" : ",") + context_->Write(parameters.rgvarg[i - 1]);
    return text;
}

STDMETHODIMP RemoteObject::DeleteMemberByName(BSTR name, DWORD) {
    return name ? Delete(std::wstring(Bstr::View(name))) : E_INVALIDARG;
}

STDMETHODIMP RemoteObject::DeleteMemberByDispID(DISPID id) {
    const std::wstring* const name = context_->Names().NameOf(id);
    return name ? Delete(*name) : DISP_E_MEMBERNOTFOUND;
}

HRESULT RemoteObject::Delete(const std::wstring& name) {
    return Guard([&] {
        const auto outcome = context_->Run(
            {.name = "delete", .object = number_, .member = ScriptText(name), .reportErrors = false});
        return outcome.value.Is(VT_BOOL) && outcome.value.boolVal ? S_OK : S_FALSE;
    });
}

STDMETHODIMP RemoteObject::GetMemberProperties(DISPID id, DWORD wanted, DWORD* properties) {
    if (!properties) return E_INVALIDARG;
    *properties = 0;
    if (id != DISPID_VALUE) return E_NOTIMPL;
    *properties = wanted & (callable_ ? fdexPropCanCall | fdexPropCanConstruct : fdexPropCannotCall);
    return S_OK;
}

STDMETHODIMP RemoteObject::GetMemberName(DISPID id, BSTR* out) {
    if (!out) return E_INVALIDARG;
    *out = nullptr;
    const std::wstring* const name = context_->Names().NameOf(id);
    if (!name) return DISP_E_UNKNOWNNAME;
    return Guard([&] { *out = Bstr(*name).Detach(); });
}

STDMETHODIMP RemoteObject::GetNextDispID(DWORD, DISPID id, DISPID* out) {
    if (!out) return E_INVALIDARG;
    return Guard([&] {
        if (id == DISPID_STARTENUM) {
            const auto outcome = context_->Run({.name = "keys", .object = number_, .reportErrors = false});
            enumeration_.clear();
            for (const std::wstring& name : outcome.names)
                enumeration_.push_back(context_->Names().IdOf(name));
        }
        const auto here = id == DISPID_STARTENUM ? enumeration_.begin() : std::ranges::find(enumeration_, id);
        const auto next = here == enumeration_.end() || id == DISPID_STARTENUM ? here : here + 1;
        if (next == enumeration_.end()) return S_FALSE;
        *out = *next;
        return S_OK;
    });
}

}  // namespace tarvik
