#include "cli/arguments.h"

#include <algorithm>

#include "cli/failure.h"

namespace tarvik {

Arguments::Arguments(std::span<wchar_t* const> words, std::span<const Option> options) {
    for (size_t at = 0; at < words.size(); ++at) {
        const std::wstring_view word = words[at];
        if (word == L"--") {
            operands_.insert(operands_.end(), words.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                             words.end());
            return;
        }
        if (word.size() < 2 || word.front() != L'-') {
            operands_.emplace_back(word);
            continue;
        }
        const size_t equals = word.find(L'=');
        const std::wstring name(word.substr(0, equals));
        const auto option = std::ranges::find(options, name, &Option::name);
        if (option == options.end()) throw UsageError(L"There is no option " + name + L".");
        std::wstring value;
        if (equals != std::wstring_view::npos) {
            if (!option->takesValue) throw UsageError(name + L" takes no value.");
            value = word.substr(equals + 1);
        } else if (option->takesValue) {
            if (++at == words.size()) throw UsageError(name + L" needs a value.");
            value = words[at];
        }
        if (!values_.emplace(option->name, value).second) throw UsageError(name + L" is given twice.");
    }
}

std::optional<std::wstring> Arguments::Value(std::wstring_view name) const {
    const auto found = values_.find(name);
    if (found == values_.end()) return std::nullopt;
    return found->second;
}

}  // namespace tarvik
