#include "plugins/config/config_plugin.h"

#include "plugins/registry_keys/registry_value.h"

namespace tarvik {

namespace {

[[maybe_unused]] const bool registered = RegisterBuiltIn<CConfigPlugin>(L"config", TVK::kTransientPlugin);

constexpr Member<CConfigPlugin> kMembers[] = {
    Method<&CConfigPlugin::Init>(L"init", -10000),
    Method<&CConfigPlugin::Clear>(L"clear", -9999),
    Method<&CConfigPlugin::SetKeyValue, &CConfigPlugin::SetFileValue>(L"setValue", -9998),
    ResultMethod<&CConfigPlugin::QueryKeyValue, &CConfigPlugin::QueryFileValue>(L"queryValue", -9997),
    Method<&CConfigPlugin::DeleteKeyValue, &CConfigPlugin::DeleteFileValue>(L"deleteValue", -9996),
};
static_assert(IsInOrder(kMembers));

}  // namespace

std::span<const Member<CConfigPlugin>> CConfigPlugin::Members() {
    return kMembers;
}

STDMETHODIMP CConfigPlugin::Initialize(TVK::ICore* core, IUnknown*) {
    if (!core) return E_INVALIDARG;
    core_ = core;
    return S_OK;
}

// An empty path stays empty: resolved, it would be the page's own folder. A path with a NUL is rejected: the
// system would cut it there.
std::wstring CConfigPlugin::FullPathOf(BSTR path) const {
    const std::wstring text(Bstr::View(path));
    if (text.empty() || text.find(L'\0') != std::wstring::npos) return {};
    return core_ ? ResolvePath(core_.Get(), text) : text;
}

Outcome CConfigPlugin::Init(BSTR text, std::optional<bool> isPath) {
    return {Guard([&] {
        if (isPath.value_or(false)) {
            file_.Select(FullPathOf(text));
            key_.Deselect();
        } else {
            key_.Select(std::wstring(Bstr::View(text)));
            file_.Deselect();
        }
    })};
}

// By design a name of the wrong type makes the result false; the call succeeds.
Outcome CConfigPlugin::Clear(std::optional<AnyValue> name) {
    return {Guard([&] {
        if (!name) return key_.IsSelected() ? key_.Clear() : file_.Clear();
        BSTR text = nullptr;
        if (!FromVariant(*name->value, text)) throw StatusError(E_INVALIDARG);
        key_.IsSelected() ? key_.ClearKey(Bstr::View(text)) : file_.ClearSection(Bstr::View(text));
    })};
}

Outcome CConfigPlugin::SetKeyValue(BSTR name, AnyValue value) {
    return {Guard([&] { key_.SetValue(Bstr::View(name), *value.value); })};
}

Outcome CConfigPlugin::SetFileValue(BSTR section, BSTR key, AnyValue value) {
    return {Guard([&] { file_.SetValue(Bstr::View(section), Bstr::View(key), *value.value); })};
}

Variant CConfigPlugin::QueryKeyValue(BSTR name) {
    return ValueOrNull([&] { return key_.QueryValue(Bstr::View(name)); });
}

Variant CConfigPlugin::QueryFileValue(BSTR section, BSTR key) {
    return ValueOrNull([&] { return file_.QueryValue(Bstr::View(section), Bstr::View(key)); });
}

Outcome CConfigPlugin::DeleteKeyValue(BSTR name) {
    return {Guard([&] { key_.DeleteValue(Bstr::View(name)); })};
}

Outcome CConfigPlugin::DeleteFileValue(BSTR section, BSTR key) {
    return {Guard([&] { file_.DeleteValue(Bstr::View(section), Bstr::View(key)); })};
}

}  // namespace tarvik
