#pragma once

#include <algorithm>
#include <cstdint>
#include <cwchar>
#include <limits>
#include <optional>

namespace tarvik {

// The number in a Content-Length header; empty if it is 0 or not a number. The contract requires that a
// number is clamped to the range of a signed 32-bit integer and then reinterpreted as unsigned.
inline std::optional<std::uint32_t> ParseContentLength(const wchar_t* text) {
    using Limits = std::numeric_limits<std::int32_t>;
    const long long length =
        std::clamp<long long>(std::wcstoll(text, nullptr, 10), Limits::min(), Limits::max());
    if (length == 0) return std::nullopt;
    return static_cast<std::uint32_t>(length);
}

}  // namespace tarvik
