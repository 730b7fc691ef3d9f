#pragma once

#include <string>
#include <string_view>

namespace tarvik {

// The settings for all hits of a page.
struct HitSettings {
    std::wstring trackingId;
    std::wstring applicationName;
    std::wstring applicationVersion;
};

// The bodies of hits. Screen, category, action and application name are escaped as segments of a URL; the
// other texts are sent verbatim. By design this throws for a text that is empty or contains only characters
// to escape.
std::wstring PageHitBody(const std::wstring& screen, const HitSettings& settings);
std::wstring EventHitBody(const std::wstring& category, const std::wstring& action,
                          const HitSettings& settings);

// The id of this machine in a hit: the GUID without its braces; a text without braces is escaped.
std::wstring ClientId(std::wstring_view guid);

}  // namespace tarvik
