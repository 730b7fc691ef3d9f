#include "plugins/registry_keys/registry_key.h"

#include <iterator>
#include <optional>
#include <vector>

#include "base/module_function.h"
#include "tarvik/status.h"

namespace tarvik {

namespace detail {

void ThrowIfError(LSTATUS error) {
    if (error != ERROR_SUCCESS) throw StatusError(HRESULT_FROM_WIN32(static_cast<DWORD>(error)));
}

const wchar_t* CheckedName(const std::wstring& name) {
    if (name.find(L'\0') != std::wstring::npos) throw StatusError(E_INVALIDARG);
    return name.c_str();
}

}  // namespace detail

using detail::CheckedName;
using detail::ThrowIfError;

namespace {

// The registry allows no deeper trees. The limit also ends a walk through a link to a parent.
constexpr size_t kMaxDepth = 512;

constexpr DWORD kNameLength = 256;  // the longest name of a key, with its terminator

std::optional<std::wstring> FirstSubkey(HKEY key) {
    wchar_t name[kNameLength];
    DWORD length = kNameLength;
    if (RegEnumKeyExW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
        return std::nullopt;
    return std::wstring(name, length);
}

// The oldest versions of Windows have no registry views.
void DeleteOneKey(HKEY parent, const std::wstring& name, REGSAM view) {
    static const auto deleteInView =
        FindFunction<decltype(RegDeleteKeyExW)>(L"Advapi32.dll", "RegDeleteKeyExW");
    const wchar_t* const checked = CheckedName(name);
    ThrowIfError(deleteInView ? deleteInView(parent, checked, view, 0) : RegDeleteKeyW(parent, checked));
}

}  // namespace

UniqueKey OpenKey(HKEY parent, const std::wstring& path, REGSAM access) {
    UniqueKey key;
    ThrowIfError(RegOpenKeyExW(parent, CheckedName(path), 0, access, key.Receive()));
    return key;
}

UniqueKey TryOpenKey(HKEY parent, const std::wstring& path, REGSAM access) {
    UniqueKey key;
    const LSTATUS error = RegOpenKeyExW(parent, CheckedName(path), 0, access, key.Receive());
    if (error != ERROR_FILE_NOT_FOUND && error != ERROR_KEY_DELETED) ThrowIfError(error);
    return key;
}

UniqueKey OpenOrCreateKey(HKEY parent, const std::wstring& path, REGSAM access) {
    UniqueKey key;
    ThrowIfError(RegCreateKeyExW(parent, CheckedName(path), 0, nullptr, REG_OPTION_NON_VOLATILE, access,
                                 nullptr, key.Receive(), nullptr));
    return key;
}

// Keeps the path of open keys in a list: a tree may be too deep for recursion.
void DeleteKeyTree(HKEY parent, const std::wstring& name, REGSAM view) {
    if (name.empty()) throw StatusError(E_INVALIDARG);
    struct Level {
        std::wstring name;
        UniqueKey key;
    };
    std::vector<Level> open;
    std::optional<std::wstring> next = name;
    do {
        if (next) {
            if (open.size() == kMaxDepth) throw StatusError(E_FAIL);
            UniqueKey key = OpenKey(open.empty() ? parent : open.back().key.Get(), *next, kWriteKey | view);
            open.push_back({std::move(*next), std::move(key)});
        } else {
            const std::wstring emptied = std::move(open.back().name);
            open.pop_back();
            DeleteOneKey(open.empty() ? parent : open.back().key.Get(), emptied, view);
        }
        if (!open.empty()) next = FirstSubkey(open.back().key.Get());
    } while (!open.empty());
}

KeyPath SplitKeyPath(std::wstring_view path) {
    const size_t end = path.rfind(L'\\');
    if (end == std::wstring_view::npos) return {{}, std::wstring(path)};
    return {std::wstring(path.substr(0, end)), std::wstring(path.substr(end + 1))};
}

}  // namespace tarvik
