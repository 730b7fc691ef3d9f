#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

struct Option {
    std::wstring_view name;  // as it is written: "--icon"
    bool takesValue = true;
};

// The words of a command line. `--icon a.ico` and `--icon=a.ico` are options with a value, what does not
// begin with a `-` is an operand, and so is everything behind `--`.
class Arguments {
  public:
    // Throws a UsageError for an option that is not listed, for one that comes twice, and for a value that is
    // missing or not wanted.
    Arguments(std::span<wchar_t* const> words, std::span<const Option> options);

    const std::vector<std::wstring>& Operands() const { return operands_; }
    bool Has(std::wstring_view name) const { return values_.contains(name); }
    std::optional<std::wstring> Value(std::wstring_view name) const;

  private:
    std::vector<std::wstring> operands_;
    std::map<std::wstring_view, std::wstring> values_;
};

}  // namespace tarvik
