#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

// The regular expressions of folder walks and script filters. They are case-sensitive, and a match may begin
// anywhere in the text.
//
//   c        the character itself            .        any character
//   [a-z_]   a set; [^...] its complement    (...)    a group
//   {...}    a capturing group               \0 to \9 the text that the first to tenth {...} captured
//   a|b      alternatives                    * + ?    greedy repetition of the item before
//   !x       negative look-ahead: x does not match here
//   ^        as the first character: the start of the text
//   $        as the last character: the end of the text; elsewhere itself
//   \a \b \c \d \h   a letter or digit, a blank or tab, a letter, a digit, a hexadecimal digit
//   \n \q \w \z      a line end, a quoted text, letters, digits
//                    In a set, an abbreviation stands for its characters; \q is an error there.
//   \ before any other character: that character
class Pattern {
  public:
    struct Range {
        size_t from = 0;
        size_t to = 0;
        std::wstring_view In(std::wstring_view text) const { return text.substr(from, to - from); }
    };
    struct Match {
        Range whole;
        std::vector<std::optional<Range>> captures;  // in the order of their opening braces
    };

    // Empty for a syntax error.
    static std::optional<Pattern> Compile(std::wstring_view text);

    static constexpr int kMaxSteps = 1'000'000;  // more than any path needs

    // The leftmost match. A search that exceeds its step limit, as only malicious patterns do, finds nothing.
    std::optional<Match> Search(std::wstring_view text, int maxSteps = kMaxSteps) const;

    struct Program;  // the compiled form

  private:
    explicit Pattern(std::shared_ptr<const Program> program) : program_(std::move(program)) {}
    std::shared_ptr<const Program> program_;
};

}  // namespace tarvik
