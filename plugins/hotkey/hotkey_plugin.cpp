#include "plugins/hotkey/hotkey_plugin.h"

#include <string>

namespace tarvik {

namespace {

constexpr Member<CHotkeyPlugin> kMembers[] = {
    Method<&CHotkeyPlugin::Set>(L"set", -10000),
    Method<&CHotkeyPlugin::Clear>(L"clear", -9999),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CHotkeyPlugin>(L"hotkey", TVK::kRetainedPlugin);

}  // namespace

std::span<const Member<CHotkeyPlugin>> CHotkeyPlugin::Members() {
    return kMembers;
}

STDMETHODIMP CHotkeyPlugin::Initialize(TVK::ICore* core, IUnknown*) {
    if (!core) return E_INVALIDARG;
    if (!window_.Window()) window_.SubclassWindow(core->GetWindowHandle(), AsUnknown());
    return S_OK;
}

// Lower case, because some keyboard layouts have a capital letter on another key.
bool CHotkeyPlugin::Set(BSTR keys, IDispatch* function, std::optional<AnyValue> context) {
    if (!function) throw StatusError(E_INVALIDARG);
    std::wstring text(Bstr::View(keys));
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    const auto combination = ParseKeyCombination(text);
    return combination && window_.Register(*combination, ComPtr<IDispatch>(function),
                                           context ? Variant::Copy(*context->value) : Variant());
}

// By design, unlike Set, this does not convert to lower case.
bool CHotkeyPlugin::Clear(BSTR keys) {
    const auto combination = ParseKeyCombination(Bstr::View(keys));
    return combination && window_.Unregister(*combination);
}

}  // namespace tarvik
