#include "app/command_line/command_line.h"

#include <shellapi.h>

#include <string_view>

namespace tarvik {

namespace {

// With a longer key or value, `k=v` is not a pair.
constexpr size_t kLongestField = 99;

bool IsPrefix(wchar_t character) {
    return character == L'/' || character == L'-';
}

const wchar_t* WithoutPrefix(const wchar_t* key) {
    return IsPrefix(*key) ? key + 1 : key;
}

}  // namespace

CCommandLine::CCommandLine(const wchar_t* text) {
    argv = CommandLineToArgvW(text, &argc);
    if (!argv) argc = 0;
    arguments_.Reset(argv);
    Parse();
}

void CCommandLine::Parse() {
    for (int i = 1; i < argc; ++i) {
        const wchar_t* const argument = argv[i];
        if (AddPair(argument)) continue;
        if (!IsPrefix(*argument)) {
            switches_.insert(argument);
        } else if (i + 1 < argc && !IsPrefix(*argv[i + 1])) {
            pairs_.emplace(argument + 1, argv[i + 1]);
            ++i;
        } else {
            switches_.insert(argument + 1);
        }
    }
}

// Here the prefix, if there is one, is a part of the key. A line end ends the value.
bool CCommandLine::AddPair(const wchar_t* argument) {
    const std::wstring_view text(argument);
    const size_t equals = text.find(L'=');
    if (equals == std::wstring_view::npos) return false;
    const std::wstring_view rest = text.substr(equals + 1);
    const std::wstring_view value = rest.substr(0, rest.find_first_of(L"\r\n"));
    const auto fits = [](std::wstring_view field) { return !field.empty() && field.size() <= kLongestField; };
    if (!fits(text.substr(0, equals)) || !fits(value)) return false;
    pairs_.emplace(text.substr(0, equals), value);
    return true;
}

const wchar_t* CCommandLine::GetValue(const wchar_t* key) const {
    if (!key) return nullptr;
    const auto found = pairs_.find(WithoutPrefix(key));
    return found == pairs_.end() ? nullptr : found->second.c_str();
}

bool CCommandLine::HasSwitch(const wchar_t* key) const {
    return key && switches_.count(WithoutPrefix(key)) > 0;
}

}  // namespace tarvik
