#pragma once

#include <algorithm>
#include <cstdint>
#include <cwchar>
#include <limits>
#include <optional>

namespace tarvik {

// The number in a Content-Length header; nothing if it is 0 or not a number. The contract requires that a
// number beyond 32 bits becomes the nearest signed one, and that a negative one is reinterpreted as unsigned.
inline std::optional<std::uint32_t> ParseContentLength(const wchar_t* text) {
    using Limits = std::numeric_limits<std::int32_t>;
    const long long length =
        std::clamp<long long>(std::wcstoll(text, nullptr, 10), Limits::min(), Limits::max());
    if (length == 0) return std::nullopt;
    return static_cast<std::uint32_t>(length);
}

}  // namespace tarvik
