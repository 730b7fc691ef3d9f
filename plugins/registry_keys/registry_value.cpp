#include "plugins/registry_keys/registry_value.h"

#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

#include "plugins/registry_keys/registry_key.h"
#include "tarvik/bstr.h"

namespace tarvik {

using detail::CheckedName;
using detail::ThrowIfError;

namespace {

struct Data {
    DWORD type = REG_NONE;
    std::vector<BYTE> bytes;
};

constexpr size_t kFirstCapacity = 1024;
constexpr int kMaxTries = 16;

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ;
}

// Type and bytes come from one call, so that they match even while another process writes the value. That
// process could also make the value longer before each try, so the number of tries is limited. Only texts
// exceed the first capacity.
std::optional<Data> ReadData(HKEY key, const wchar_t* name) {
    Data data;
    data.bytes.resize(kFirstCapacity);
    for (int tries = 0; tries < kMaxTries; ++tries) {
        DWORD size = static_cast<DWORD>(data.bytes.size());
        const LSTATUS error = RegQueryValueExW(key, name, nullptr, &data.type, data.bytes.data(), &size);
        const bool isLonger = error == ERROR_MORE_DATA && IsText(data.type);
        if (error != ERROR_SUCCESS && !isLonger) return std::nullopt;
        data.bytes.resize(size);
        if (!isLonger) return data;
    }
    return std::nullopt;
}

Variant TextOf(const std::vector<BYTE>& bytes) {
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    if (bytes.size() % sizeof(wchar_t) != 0) return Variant::Null();
    if (!bytes.empty()) std::memcpy(text.data(), bytes.data(), bytes.size());
    if (!text.empty() && text.back() != L'\0') return Variant::Null();
    text.resize(text.find_last_not_of(L'\0') + 1);
    return Variant::Text(text);
}

template <class Number, class Make>
Variant NumberOf(const std::vector<BYTE>& bytes, Make make) {
    Number number = 0;
    if (bytes.size() != sizeof number) return Variant::Null();
    std::memcpy(&number, bytes.data(), sizeof number);
    return make(number);
}

void Write(HKEY key, const std::wstring& name, DWORD type, const void* bytes, size_t size) {
    ThrowIfError(RegSetValueExW(key, CheckedName(name), 0, type, static_cast<const BYTE*>(bytes),
                                static_cast<DWORD>(size)));
}

void WriteText(HKEY key, const std::wstring& name, BSTR value) {
    if (!value) throw StatusError(HRESULT_FROM_WIN32(ERROR_INVALID_DATA));
    const std::wstring text(Bstr::View(value));
    Write(key, name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

}  // namespace

Variant ReadValue(HKEY key, const std::wstring& name) {
    const auto data = ReadData(key, CheckedName(name));
    if (!data) return Variant::Null();
    if (IsText(data->type)) return TextOf(data->bytes);
    if (data->type == REG_DWORD) return NumberOf<ULONG>(data->bytes, Variant::UI4);
    if (data->type == REG_QWORD) return NumberOf<ULONGLONG>(data->bytes, Variant::UI8);
    return Variant::Null();
}

bool HasValue(HKEY key, const std::wstring& name) {
    return RegQueryValueExW(key, CheckedName(name), nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

void WriteValue(HKEY key, const std::wstring& name, const VARIANT& value) {
    switch (value.vt) {
        case VT_I4:
            return Write(key, name, REG_DWORD, &value.lVal, sizeof value.lVal);
        case VT_I8:
            return Write(key, name, REG_QWORD, &value.llVal, sizeof value.llVal);
        case VT_BSTR:
            return WriteText(key, name, value.bstrVal);
        default:
            throw StatusError(E_NOTIMPL);
    }
}

void DeleteValue(HKEY key, const std::wstring& name) {
    ThrowIfError(RegDeleteValueW(key, CheckedName(name)));
}

}  // namespace tarvik
