#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

using Version = std::array<std::uint16_t, 4>;

// The version information that the system shows for a program.
struct VersionInfo {
    std::wstring name;
    Version version;
    std::wstring company;  // both may be empty
    std::wstring copyright;
};

// One to four numbers of 0 to 65535 with dots between them.
std::optional<Version> ParseVersion(std::string_view text);

// As a resource of the type RT_VERSION.
std::vector<std::uint8_t> VersionResource(const VersionInfo& info);

}  // namespace tarvik
