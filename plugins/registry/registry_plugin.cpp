#include "plugins/registry/registry_plugin.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "plugins/registry_keys/registry_value.h"

namespace tarvik {

namespace {

[[maybe_unused]] const bool registered = RegisterBuiltIn<CRegistryPlugin>(L"registry", TVK::kTransientPlugin);

constexpr Member<CRegistryPlugin> kMembers[] = {
    Method<&CRegistryPlugin::CreateKey>(-10000, L"createKey"),
    Method<&CRegistryPlugin::DeleteKey>(-9999, L"deleteKey"),
    Method<&CRegistryPlugin::SetValue>(-9998, L"setValue"),
    Method<&CRegistryPlugin::DeleteValue>(-9997, L"deleteValue"),
    ResultMethod<&CRegistryPlugin::QueryValue>(-9996, L"queryValue"),
    Method<&CRegistryPlugin::IsKeyExist>(-9995, L"isKeyExist"),
    Method<&CRegistryPlugin::IsValueExist>(-9994, L"isValueExist"),
    Property<&CRegistryPlugin::GetMode, &CRegistryPlugin::SetMode>(-9993, L"mode"),
};
static_assert(IsInOrder(kMembers));

struct Mode {
    const wchar_t* word;
    REGSAM view;
};
constexpr Mode kModes[] = {
    {L"default", 0},
    {L"force32", KEY_WOW64_32KEY},
    {L"force64", KEY_WOW64_64KEY},
};

struct Place {
    HKEY root;
    std::wstring path;
};

// The character behind a root's name is skipped, whatever it is; that is intended.
Place PlaceOf(BSTR text) {
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
        if (!SameIgnoringCase(path.substr(0, root.name.size()), root.name)) continue;
        return {root.key, std::wstring(path.substr(std::min(root.name.size() + 1, path.size())))};
    }
    throw StatusError(E_INVALIDARG);
}

// The bits of the whole part; a negative number has those of a signed one. What 64 bits cannot hold is
// refused.
LONGLONG WholeBits(double number) {
    constexpr double kSignedEnd = 9223372036854775808.0;
    if (!(number >= -kSignedEnd && number < 2 * kSignedEnd)) throw StatusError(E_INVALIDARG);
    if (number < kSignedEnd) return static_cast<LONGLONG>(number);
    return static_cast<LONGLONG>(static_cast<ULONGLONG>(number));
}

// Script's numbers and booleans become those that the registry has.
void Store(HKEY key, const std::wstring& name, const VARIANT& value) {
    if (value.vt == VT_R8) return WriteValue(key, name, Variant::I8(WholeBits(value.dblVal)));
    if (value.vt == VT_BOOL) return WriteValue(key, name, Variant::I4(value.boolVal == VARIANT_TRUE));
    WriteValue(key, name, value);
}

// Script's engines do not calculate with numbers of 64 bits.
Variant Load(HKEY key, const std::wstring& name) {
    Variant value = ReadValue(key, name);
    return value.Is(VT_UI8) ? Variant::R8(static_cast<double>(value.ullVal)) : std::move(value);
}

}  // namespace

std::span<const Member<CRegistryPlugin>> CRegistryPlugin::Members() {
    return kMembers;
}

CRegistryPlugin::Leaf CRegistryPlugin::OpenAbove(BSTR path, REGSAM access) const {
    const Place place = PlaceOf(path);
    KeyPath split = SplitKeyPath(place.path);
    return {OpenKey(place.root, split.key, access | view_), std::move(split.leaf)};
}

Outcome CRegistryPlugin::CreateKey(BSTR path) {
    return {Guard([&] {
        const Place place = PlaceOf(path);
        MakeKey(place.root, place.path, kWriteKey | view_);
    })};
}

Outcome CRegistryPlugin::DeleteKey(BSTR path) {
    return {Guard([&] {
        const Leaf leaf = OpenAbove(path, kWriteKey);
        DeleteKeyTree(leaf.key.Get(), leaf.name, view_);
    })};
}

Outcome CRegistryPlugin::SetValue(BSTR path, AnyValue value) {
    return {Guard([&] {
        const Leaf leaf = OpenAbove(path, kWriteKey);
        Store(leaf.key.Get(), leaf.name, *value.value);
    })};
}

Outcome CRegistryPlugin::DeleteValue(BSTR path) {
    return {Guard([&] {
        const Leaf leaf = OpenAbove(path, kWriteKey);
        tarvik::DeleteValue(leaf.key.Get(), leaf.name);
    })};
}

Variant CRegistryPlugin::QueryValue(BSTR path) {
    return FoundOrNull([&] {
        const Leaf leaf = OpenAbove(path, kReadKey);
        return Load(leaf.key.Get(), leaf.name);
    });
}

Outcome CRegistryPlugin::IsKeyExist(BSTR path) {
    return {Guard([&] {
        const Place place = PlaceOf(path);
        OpenKey(place.root, place.path, kReadKey | view_);
    })};
}

Outcome CRegistryPlugin::IsValueExist(BSTR path) {
    return {Guard([&] {
        const Leaf leaf = OpenAbove(path, kReadKey);
        return HasValue(leaf.key.Get(), leaf.name) ? S_OK : S_FALSE;
    })};
}

Bstr CRegistryPlugin::GetMode() {
    const auto mode = std::ranges::find(kModes, view_, &Mode::view);
    return Bstr(mode->word);
}

HRESULT CRegistryPlugin::SetMode(BSTR mode) {
    const auto known = std::ranges::find_if(
        kModes, [&](const Mode& each) { return SameIgnoringCase(Bstr::View(mode), each.word); });
    if (known == std::end(kModes)) return E_INVALIDARG;
    view_ = known->view;
    return S_OK;
}

}  // namespace tarvik
