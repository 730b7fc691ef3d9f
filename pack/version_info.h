#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

// What the system shows of a program.
struct VersionInfo {
    std::wstring name;
    std::array<std::uint16_t, 4> version;
    std::wstring company;  // these may be empty
    std::wstring copyright;
};

// One to four numbers of 0 to 65535 with dots between them; throws a UsageError for anything else.
std::array<std::uint16_t, 4> ParseVersion(std::wstring_view text);

// As a resource of the type RT_VERSION.
std::vector<std::uint8_t> VersionResource(const VersionInfo& info);

}  // namespace tarvik
