#include "plugins/window/msg_dispatch.h"

#include "plugins/window/message_sender.h"

namespace tarvik {

namespace {

constexpr Member<CMsgDispatch> kMembers[] = {
    Method<&CMsgDispatch::RegisterMsg>(L"registerMsg", -9956),
    Method<&CMsgDispatch::UnregisterMsg>(L"unregisterMsg", -9955),
    Method<&CMsgDispatch::SendMsg>(L"sendMsg", -9954),
    Property<&CMsgDispatch::GetUniqueId, &CMsgDispatch::SetUniqueId>(L"uniqueID", -9953),
};
static_assert(IsInOrder(kMembers));

}  // namespace

std::span<const Member<CMsgDispatch>> CMsgDispatch::Members() {
    return kMembers;
}

STDMETHODIMP CMsgDispatch::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                  VARIANT* result, EXCEPINFO* exception, UINT* argument) {
    if (!window_) return E_FAIL;
    return Dispatch::Invoke(id, iid, locale, flags, parameters, result, exception, argument);
}

// Converting an argument may run a script that destroys the window.
CMainSubclassWindow& CMsgDispatch::Window() const {
    if (!window_) throw StatusError(E_FAIL);
    return *window_;
}

Outcome CMsgDispatch::RegisterMsg(BSTR name, IDispatch* function, std::optional<AnyValue> context) {
    if (!name) return {E_INVALIDARG};
    if (!Window().Window()) return {E_FAIL};  // destroyed: no message can arrive
    return {
        Window().Handlers().Register(name, function, context ? Variant::Copy(*context->value) : Variant())};
}

bool CMsgDispatch::UnregisterMsg(BSTR name) {
    if (name) Window().Handlers().Unregister(name);
    return name != nullptr;
}

bool CMsgDispatch::SendMsg(CoercedText identifier, CoercedText name, std::optional<AnyValue> payload) {
    // Copied, because a handler may change the argument before the next window receives it.
    std::wstring text;
    if (BSTR given = nullptr; payload && FromVariant(*payload->value, given)) text = Bstr::View(given);
    return SendToReceivers(identifier.Get(), name.isNull ? nullptr : name.Get(), text);
}

Bstr CMsgDispatch::GetUniqueId() {
    return Bstr(Window().UniqueId());
}

HRESULT CMsgDispatch::SetUniqueId(CoercedText identifier) {
    Window().SetUniqueId(identifier.Get());
    return S_OK;
}

}  // namespace tarvik
