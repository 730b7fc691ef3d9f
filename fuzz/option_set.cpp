#include "app/command_line/option_set.h"

#include <vector>

#include "fuzz/input.h"

// A key, and the arguments of a command line, with a zero after each.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvik;
    std::wstring input = TextOf({data, size});
    input += L'\0';
    std::vector<const wchar_t*> words;
    for (size_t at = 0; at < input.size(); at = input.find(L'\0', at) + 1)
        words.push_back(input.c_str() + at);
    const OptionSet options(std::span(words).subspan(1));
    const wchar_t* const value = options.GetValue(words[0]);
    const bool isSwitch = options.HasSwitch(words[0]);
    Require(words.size() > 1 || (!value && !isSwitch));
    for (const wchar_t* const word : words) {
        options.GetValue(word);
        options.HasSwitch(word);
    }
    return 0;
}
