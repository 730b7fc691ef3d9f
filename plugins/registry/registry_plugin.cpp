#include "plugins/registry/registry_plugin.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "plugins/registry_keys/registry_value.h"

namespace tarvik {

namespace {

[[maybe_unused]] const bool registered = RegisterBuiltIn<CRegistryPlugin>(L"registry", TVK::kTransientPlugin);

constexpr Member<CRegistryPlugin> kMembers[] = {
    Method<&CRegistryPlugin::CreateKey>(L"createKey", -10000),
    Method<&CRegistryPlugin::DeleteKey>(L"deleteKey", -9999),
    Method<&CRegistryPlugin::SetValue>(L"setValue", -9998),
    Method<&CRegistryPlugin::DeleteValue>(L"deleteValue", -9997),
    ResultMethod<&CRegistryPlugin::QueryValue>(L"queryValue", -9996),
    Method<&CRegistryPlugin::IsKeyExist>(L"isKeyExist", -9995),
    Method<&CRegistryPlugin::IsValueExist>(L"isValueExist", -9994),
    Property<&CRegistryPlugin::GetMode, &CRegistryPlugin::SetMode>(L"mode", -9993),
};
static_assert(IsInOrder(kMembers));

struct Mode {
    const wchar_t* name;
    REGSAM view;
};
constexpr Mode kModes[] = {
    {L"default", 0},
    {L"force32", KEY_WOW64_32KEY},
    {L"force64", KEY_WOW64_64KEY},
};

struct RegistryPath {
    HKEY root;
    std::wstring path;  // below the root
};

// By design any character separates the root's name from the path.
RegistryPath ParsePath(BSTR text) {
    static const struct {
        std::wstring_view name;
        HKEY key;
    } kRoots[] = {
        {L"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT},
        {L"HKEY_CURRENT_CONFIG", HKEY_CURRENT_CONFIG},
        {L"HKEY_CURRENT_USER", HKEY_CURRENT_USER},
        {L"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE},
        {L"HKEY_USERS", HKEY_USERS},
    };
    const std::wstring_view path = Bstr::View(text);
    for (const auto& root : kRoots) {
        if (!EqualsIgnoreCase(path.substr(0, root.name.size()), root.name)) continue;
        return {root.key, std::wstring(path.substr(std::min(root.name.size() + 1, path.size())))};
    }
    throw StatusError(E_INVALIDARG);
}

// The whole part as the bits of a signed integer, or of an unsigned one if it is too large. Throws
// E_INVALIDARG if it does not fit into 64 bits.
LONGLONG WholePart(double number) {
    constexpr double kSignedEnd = 9223372036854775808.0;
    if (!(number >= -kSignedEnd && number < 2 * kSignedEnd)) throw StatusError(E_INVALIDARG);
    if (number < kSignedEnd) return static_cast<LONGLONG>(number);
    return static_cast<LONGLONG>(static_cast<ULONGLONG>(number));
}

// Converts JavaScript's numbers and booleans to integers.
void StoreValue(HKEY key, const std::wstring& name, const VARIANT& value) {
    if (value.vt == VT_R8) return WriteValue(key, name, Variant::I8(WholePart(value.dblVal)));
    if (value.vt == VT_BOOL) return WriteValue(key, name, Variant::I4(value.boolVal == VARIANT_TRUE));
    WriteValue(key, name, value);
}

// JavaScript engines cannot calculate with VT_UI8.
Variant LoadValue(HKEY key, const std::wstring& name) {
    Variant value = ReadValue(key, name);
    return value.Is(VT_UI8) ? Variant::R8(static_cast<double>(value.ullVal)) : std::move(value);
}

}  // namespace

std::span<const Member<CRegistryPlugin>> CRegistryPlugin::Members() {
    return kMembers;
}

CRegistryPlugin::Leaf CRegistryPlugin::OpenParent(BSTR path, REGSAM access) const {
    const RegistryPath parsed = ParsePath(path);
    KeyPath split = SplitKeyPath(parsed.path);
    return {OpenKey(parsed.root, split.key, access | view_), std::move(split.leaf)};
}

Outcome CRegistryPlugin::CreateKey(BSTR path) {
    return {Guard([&] {
        const RegistryPath parsed = ParsePath(path);
        OpenOrCreateKey(parsed.root, parsed.path, kWriteKey | view_);
    })};
}

Outcome CRegistryPlugin::DeleteKey(BSTR path) {
    return {Guard([&] {
        const Leaf leaf = OpenParent(path, kWriteKey);
        DeleteKeyTree(leaf.key.Get(), leaf.name, view_);
    })};
}

Outcome CRegistryPlugin::SetValue(BSTR path, AnyValue value) {
    return {Guard([&] {
        const Leaf leaf = OpenParent(path, kWriteKey);
        StoreValue(leaf.key.Get(), leaf.name, *value.value);
    })};
}

Outcome CRegistryPlugin::DeleteValue(BSTR path) {
    return {Guard([&] {
        const Leaf leaf = OpenParent(path, kWriteKey);
        tarvik::DeleteValue(leaf.key.Get(), leaf.name);
    })};
}

Variant CRegistryPlugin::QueryValue(BSTR path) {
    return ValueOrNull([&] {
        const Leaf leaf = OpenParent(path, kReadKey);
        return LoadValue(leaf.key.Get(), leaf.name);
    });
}

Outcome CRegistryPlugin::IsKeyExist(BSTR path) {
    return {Guard([&] {
        const RegistryPath parsed = ParsePath(path);
        OpenKey(parsed.root, parsed.path, kReadKey | view_);
    })};
}

Outcome CRegistryPlugin::IsValueExist(BSTR path) {
    return {Guard([&] {
        const Leaf leaf = OpenParent(path, kReadKey);
        return HasValue(leaf.key.Get(), leaf.name) ? S_OK : S_FALSE;
    })};
}

Bstr CRegistryPlugin::GetMode() {
    const auto mode = std::ranges::find(kModes, view_, &Mode::view);
    return Bstr(mode->name);
}

HRESULT CRegistryPlugin::SetMode(BSTR mode) {
    const auto known = std::ranges::find_if(
        kModes, [&](const Mode& each) { return EqualsIgnoreCase(Bstr::View(mode), each.name); });
    if (known == std::end(kModes)) return E_INVALIDARG;
    view_ = known->view;
    return S_OK;
}

}  // namespace tarvik
