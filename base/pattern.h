#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

// The pattern language of folder walks and script filters. Case-sensitive; a match may begin anywhere in the
// text.
//
//   c        itself                          .        any character
//   [a-z_]   a set; [^...] its opposite      (...)    a group
//   {...}    a group that is also captured   \0 to \9 the text that the first to tenth {...} captured
//   a|b      alternatives                    * + ?    repeat what stands before, as often as possible
//   !x       the text does not go on with x (it takes no character)
//   ^        at the very start: the start of the text
//   $        as the very last character: the end of the text; elsewhere itself
//   \a \b \c \d \h   a letter or digit, a blank or tab, a letter, a digit, a hexadecimal digit
//   \n \q \w \z      a line end, a quoted text, letters, digits
//                    in a set, an abbreviation stands for its characters; \q has none and is refused there
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

    // Empty if the text is no expression of the language.
    static std::optional<Pattern> Compile(std::wstring_view text);

    // The first match from the left. A search that takes too many steps, as only expressions made for it do,
    // gives up and has found nothing.
    std::optional<Match> Search(std::wstring_view text) const;

    struct Program;  // the compiled form

  private:
    explicit Pattern(std::shared_ptr<const Program> program) : program_(std::move(program)) {}
    std::shared_ptr<const Program> program_;
};

}  // namespace tarvik
