#include "app/command_line/command_line.h"

#include <shellapi.h>

#include <string_view>

namespace tarvik {

namespace {

// Room for a key or a value of the form `k=v`; a longer one makes the argument something else as a whole.
constexpr size_t kLongestField = 99;

bool IsMark(wchar_t character) {
    return character == L'/' || character == L'-';
}

const wchar_t* WithoutMark(const wchar_t* key) {
    return IsMark(*key) ? key + 1 : key;
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
        if (!IsMark(*argument)) {
            switches_.insert(argument);
        } else if (i + 1 < argc && !IsMark(*argv[i + 1])) {
            pairs_.emplace(argument + 1, argv[i + 1]);
            ++i;
        } else {
            switches_.insert(argument + 1);
        }
    }
}

// `key=value`, with the mark of the key if it has one. The value ends at the end of its line.
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
    const auto found = pairs_.find(WithoutMark(key));
    return found == pairs_.end() ? nullptr : found->second.c_str();
}

bool CCommandLine::HasSwitch(const wchar_t* key) const {
    return key && switches_.count(WithoutMark(key)) > 0;
}

}  // namespace tarvik
