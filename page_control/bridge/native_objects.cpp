#include "page_control/bridge/native_objects.h"

#include <dispex.h>

#include <algorithm>

#include "tarvik/bstr.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr LCID kLocale = LOCALE_USER_DEFAULT;

HRESULT InvokeReversed(IDispatch* object, DISPID id, WORD flags, std::vector<Variant>& arguments,
                       VARIANT* value, EXCEPINFO* exception) {
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    return object->Invoke(id, IID_NULL, kLocale, flags, &parameters, value, exception, nullptr);
}

}  // namespace

void NativeObjects::SetExternal(IDispatch* external) {
    if (!external) return;
    auto identity = Query<IUnknown>(external);
    numbers_[identity.Get()] = kExternal;
    entries_[kExternal] = {std::move(identity), external, 1, {}};
}

int NativeObjects::AddReference(IUnknown* object) {
    auto identity = Query<IUnknown>(object);
    auto dispatch = Query<IDispatch>(object);
    const auto [place, isNew] = numbers_.try_emplace(identity.Get(), last_ + 1);
    if (isNew) {
        ++last_;
        entries_[place->second] = {std::move(identity), std::move(dispatch), 0, {}};
    }
    const int number = place->second;
    ++entries_[number].references;
    if (entries_.size() > threshold_) {
        threshold_ = entries_.size() * 2;
        onManyObjects_();
    }
    return number;
}

void NativeObjects::Release(int number, int references) {
    const auto found = entries_.find(number);
    if (found == entries_.end() || (found->second.references -= references) > 0 || number == kExternal)
        return;
    // Removed from the tables first, because its destructor may call back.
    const Entry removed = std::move(found->second);
    entries_.erase(found);
    numbers_.erase(removed.identity.Get());
    threshold_ = std::max(kCollectThreshold, std::min(threshold_, entries_.size() * 2));
}

void NativeObjects::Clear() {
    const auto removed = std::move(entries_);
    entries_.clear();
    numbers_.clear();
}

IUnknown* NativeObjects::Object(int number) const {
    const auto found = entries_.find(number);
    if (found == entries_.end()) return nullptr;
    return found->second.dispatch ? found->second.dispatch.Get() : found->second.identity.Get();
}

bool NativeObjects::IsCallable(int number) const {
    const auto extensible = Query<IDispatchEx>(Dispatch(number).Get());
    DWORD properties = 0;
    return !extensible ||
           (extensible->GetMemberProperties(DISPID_VALUE, fdexPropCanCall, &properties) == S_OK &&
            (properties & fdexPropCanCall) != 0);
}

ComPtr<IDispatch> NativeObjects::Dispatch(int number) const {
    const auto found = entries_.find(number);
    return found == entries_.end() ? nullptr : found->second.dispatch;
}

HRESULT NativeObjects::IdOf(const Member& member, DISPID* id) {
    const ComPtr<IDispatch> object = Dispatch(member.object);
    if (!object) return DISP_E_UNKNOWNNAME;
    const auto& ids = entries_[member.object].ids;
    if (const auto known = ids.find(member.name); known != ids.end()) {
        *id = known->second;
        return S_OK;
    }
    LPOLESTR name = const_cast<LPOLESTR>(member.name.c_str());
    const HRESULT status = object->GetIDsOfNames(IID_NULL, &name, 1, kLocale, id);
    // The object may have been released meanwhile.
    const auto found = entries_.find(member.object);
    if (SUCCEEDED(status) && found != entries_.end()) found->second.ids[member.name] = *id;
    return status;
}

// Members of an extensible object may have been deleted or added since the last look-up.
HRESULT NativeObjects::Find(const Member& member) {
    DISPID id = DISPID_UNKNOWN;
    const auto entry = entries_.find(member.object);
    if (entry != entries_.end() && IsExtensible(member.object)) entry->second.ids.erase(member.name);
    return IdOf(member, &id);
}

HRESULT NativeObjects::Read(const Member& member, VARIANT* value, EXCEPINFO* exception) {
    const ComPtr<IDispatch> object = Dispatch(member.object);
    DISPID id = DISPID_UNKNOWN;
    if (const HRESULT status = IdOf(member, &id); FAILED(status)) return status;
    DISPPARAMS none = {};
    return object->Invoke(id, IID_NULL, kLocale, DISPATCH_PROPERTYGET, &none, value, exception, nullptr);
}

HRESULT NativeObjects::Write(const Member& member, const VARIANT& value, EXCEPINFO* exception) {
    const ComPtr<IDispatch> object = Dispatch(member.object);
    DISPID id = DISPID_UNKNOWN;
    HRESULT status = IdOf(member, &id);
    const auto extensible = Query<IDispatchEx>(object.Get());
    if (status == DISP_E_UNKNOWNNAME && extensible) {
        const Bstr name(member.name);
        status = extensible->GetDispID(name.Get(), fdexNameEnsure, &id);
    }
    if (FAILED(status)) return status;
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {const_cast<VARIANT*>(&value), &named, 1, 1};
    const WORD byReference = value.vt == VT_DISPATCH ? DISPATCH_PROPERTYPUTREF : 0;
    return object->Invoke(id, IID_NULL, kLocale, DISPATCH_PROPERTYPUT | byReference, &parameters, nullptr,
                          exception, nullptr);
}

HRESULT NativeObjects::Call(const Member& member, std::vector<Variant>& arguments, VARIANT* value,
                            EXCEPINFO* exception) {
    const ComPtr<IDispatch> object = Dispatch(member.object);
    DISPID id = DISPID_UNKNOWN;
    if (const HRESULT status = IdOf(member, &id); FAILED(status)) return status;
    return InvokeReversed(object.Get(), id, DISPATCH_METHOD, arguments, value, exception);
}

HRESULT NativeObjects::CallDefault(int number, WORD flags, std::vector<Variant>& arguments, VARIANT* value,
                                   EXCEPINFO* exception) {
    const ComPtr<IDispatch> object = Dispatch(number);
    return object ? InvokeReversed(object.Get(), DISPID_VALUE, flags, arguments, value, exception)
                  : DISP_E_MEMBERNOTFOUND;
}

HRESULT NativeObjects::Delete(const Member& member) {
    const auto extensible = Query<IDispatchEx>(Dispatch(member.object).Get());
    const Bstr name(member.name);
    return extensible ? extensible->DeleteMemberByName(name.Get(), fdexNameCaseSensitive) : E_NOTIMPL;
}

std::vector<std::wstring> NativeObjects::Names(int number) const {
    std::vector<std::wstring> names;
    const auto extensible = Query<IDispatchEx>(Dispatch(number).Get());
    DISPID id = DISPID_STARTENUM;
    while (extensible && extensible->GetNextDispID(fdexEnumDefault, id, &id) == S_OK) {
        Bstr name;
        if (SUCCEEDED(extensible->GetMemberName(id, name.Receive()))) names.emplace_back(name.View());
    }
    return names;
}

bool NativeObjects::IsExtensible(int number) const {
    return Query<IDispatchEx>(Dispatch(number).Get()) != nullptr;
}

}  // namespace tarvik
