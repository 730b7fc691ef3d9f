#include "plugins/config/config_plugin.h"

#include "plugins/registry_keys/registry_value.h"

namespace tarvik {

namespace {

[[maybe_unused]] const bool registered = RegisterBuiltIn<CConfigPlugin>(L"config", TVK::kTransientPlugin);

constexpr Member<CConfigPlugin> kMembers[] = {
    Method<&CConfigPlugin::Init>(-10000, L"init"),
    Method<&CConfigPlugin::Clear>(-9999, L"clear"),
    Method<&CConfigPlugin::SetKeyValue, &CConfigPlugin::SetFileValue>(-9998, L"setValue"),
    ResultMethod<&CConfigPlugin::QueryKeyValue, &CConfigPlugin::QueryFileValue>(-9997, L"queryValue"),
    Method<&CConfigPlugin::DeleteKeyValue, &CConfigPlugin::DeleteFileValue>(-9996, L"deleteValue"),
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

// Empty where the page cannot say where the path is. Nothing stays nothing: made absolute it would be the
// page's own folder. What ends at a zero would be another path.
std::wstring CConfigPlugin::FullPathOf(BSTR path) const {
    const std::wstring text(Bstr::View(path));
    if (text.empty() || text.find(L'\0') != std::wstring::npos) return {};
    return core_ ? ResolvePath(core_.Get(), text) : text;
}

Outcome CConfigPlugin::Init(BSTR text, std::optional<bool> isPath) {
    return {Guard([&] {
        if (isPath.value_or(false)) {
            file_.Choose(FullPathOf(text));
            key_.Leave();
        } else {
            key_.Choose(std::wstring(Bstr::View(text)));
            file_.Leave();
        }
    })};
}

// A name of the wrong kind is a failure of the work here, not of the call; that is intended.
Outcome CConfigPlugin::Clear(std::optional<AnyValue> name) {
    return {Guard([&] {
        if (!name) return key_.IsChosen() ? key_.Clear() : file_.Clear();
        BSTR text = nullptr;
        if (!FromVariant(*name->value, text)) throw StatusError(E_INVALIDARG);
        key_.IsChosen() ? key_.ClearKey(Bstr::View(text)) : file_.ClearSection(Bstr::View(text));
    })};
}

Outcome CConfigPlugin::SetKeyValue(BSTR name, AnyValue value) {
    return {Guard([&] { key_.SetValue(Bstr::View(name), *value.value); })};
}

Outcome CConfigPlugin::SetFileValue(BSTR section, BSTR key, AnyValue value) {
    return {Guard([&] { file_.SetValue(Bstr::View(section), Bstr::View(key), *value.value); })};
}

Variant CConfigPlugin::QueryKeyValue(BSTR name) {
    return FoundOrNull([&] { return key_.QueryValue(Bstr::View(name)); });
}

Variant CConfigPlugin::QueryFileValue(BSTR section, BSTR key) {
    return FoundOrNull([&] { return file_.QueryValue(Bstr::View(section), Bstr::View(key)); });
}

Outcome CConfigPlugin::DeleteKeyValue(BSTR name) {
    return {Guard([&] { key_.DeleteValue(Bstr::View(name)); })};
}

Outcome CConfigPlugin::DeleteFileValue(BSTR section, BSTR key) {
    return {Guard([&] { file_.DeleteValue(Bstr::View(section), Bstr::View(key)); })};
}

}  // namespace tarvik
