#pragma once

#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <utility>

// What the fuzz targets share. A target gets arbitrary bytes and must return.
namespace tarvik {

using Input = std::span<const std::uint8_t>;

// Reports a violated property of a parser as a crash.
inline void Require(bool holds) {
    if (!holds) std::abort();
}

// A text of UTF-16 code units. Each byte is one code unit, which keeps corpus files readable; 0xFF escapes
// any other one, the high byte first. wchar_t has 32 bits here and 16 on Windows; no parser depends on that.
inline std::wstring TextOf(Input input) {
    std::wstring text;
    for (size_t i = 0; i < input.size(); ++i) {
        if (input[i] == 0xFF && input.size() - i > 2) {
            text += static_cast<wchar_t>(input[i + 1] << 8 | input[i + 2]);
            i += 2;
        } else {
            text += static_cast<wchar_t>(input[i]);
        }
    }
    return text;
}

// Splits a text at its first line feed, which may be missing.
inline std::pair<std::wstring_view, std::wstring_view> SplitLine(std::wstring_view text) {
    const size_t end = text.find(L'\n');
    if (end == text.npos) return {text, {}};
    return {text.substr(0, end), text.substr(end + 1)};
}

}  // namespace tarvik
