#pragma once

#include <windows.h>

#include <optional>
#include <string_view>

namespace tarvik {

// The engine that shows an application's pages. `tarvik-pack` writes the name of the author's choice into a
// resource of the type RT_RCDATA.
enum class EngineChoice {
    kEither,    // the system's, or Chromium where the system has none
    kSystem,    // the system's WebBrowser control
    kChromium,  // the page control
};

inline constexpr WORD kEngineResource = 1;
inline constexpr std::string_view kEngineNames[] = {"either", "system", "chromium"};

inline std::optional<EngineChoice> ParseEngine(std::string_view name) {
    for (int i = 0; const std::string_view known : kEngineNames) {
        if (known == name) return static_cast<EngineChoice>(i);
        ++i;
    }
    return std::nullopt;
}

}  // namespace tarvik
