#pragma once

#include <optional>
#include <string_view>

namespace tarvik {

// The two texts in the shared block of a message. The sender may still write to it: copy them once, and do
// not depend on their contents.
struct BlockText {
    std::wstring_view name;
    std::optional<std::wstring_view> payload;
};

inline constexpr size_t kBlockNuls = 2;  // in every block

// Empty if the name is missing.
inline std::optional<BlockText> ParseBlock(std::wstring_view block) {
    const size_t end = block.find(L'\0');
    if (end == 0 || end == std::wstring_view::npos) return std::nullopt;
    BlockText text = {block.substr(0, end), std::nullopt};
    if (block.size() > end + kBlockNuls)
        text.payload = block.substr(end + 1, block.size() - end - kBlockNuls);
    return text;
}

}  // namespace tarvik
