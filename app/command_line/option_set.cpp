#include "app/command_line/option_set.h"

#include <algorithm>

namespace tarvik {

namespace {

// `k=v` with a longer key or value is not a pair.
constexpr size_t kMaxFieldLength = 99;

bool IsPrefix(wchar_t character) {
    return character == L'/' || character == L'-';
}

bool HasPrefix(std::wstring_view argument) {
    return !argument.empty() && IsPrefix(argument.front());
}

std::wstring_view WithoutPrefix(std::wstring_view key) {
    return key.substr(HasPrefix(key) ? 1 : 0);
}

}  // namespace

bool OptionSet::CaseInsensitiveLess::operator()(std::wstring_view left, std::wstring_view right) const {
    const auto lower = [](wchar_t character) {
        return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a')
                                                      : character;
    };
    return std::ranges::lexicographical_compare(left, right, {}, lower, lower);
}

OptionSet::OptionSet(std::span<const wchar_t* const> arguments) {
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::wstring_view argument = arguments[i];
        if (AddPair(argument)) continue;
        if (!HasPrefix(argument)) {
            switches_.emplace(argument);
        } else if (i + 1 < arguments.size() && !IsPrefix(*arguments[i + 1])) {
            pairs_.emplace(argument.substr(1), arguments[i + 1]);
            ++i;
        } else {
            switches_.emplace(argument.substr(1));
        }
    }
}

// Keeps a prefix as a part of the key. The value ends at a line end.
bool OptionSet::AddPair(std::wstring_view argument) {
    const size_t equals = argument.find(L'=');
    if (equals == std::wstring_view::npos) return false;
    const std::wstring_view key = argument.substr(0, equals);
    const std::wstring_view rest = argument.substr(equals + 1);
    const std::wstring_view value = rest.substr(0, rest.find_first_of(L"\r\n"));
    const auto fits = [](std::wstring_view field) {
        return !field.empty() && field.size() <= kMaxFieldLength;
    };
    if (!fits(key) || !fits(value)) return false;
    pairs_.emplace(key, value);
    return true;
}

const wchar_t* OptionSet::GetValue(const wchar_t* key) const {
    if (!key) return nullptr;
    const auto found = pairs_.find(WithoutPrefix(key));
    return found == pairs_.end() ? nullptr : found->second.c_str();
}

bool OptionSet::HasSwitch(const wchar_t* key) const {
    return key && switches_.contains(WithoutPrefix(key));
}

}  // namespace tarvik
