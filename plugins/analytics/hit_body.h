#pragma once

#include <string>
#include <string_view>

namespace tarvik {

// What a page has set once for all of its hits.
struct HitOrigin {
    std::wstring trackingId;
    std::wstring applicationName;
    std::wstring applicationVersion;
};

// Bodies of hits. Screen, category, action and application name are escaped as parts of a URL's path; the
// other texts go out as they stand. An empty text cannot be escaped, nor one that has nothing but characters
// to escape in it: the status is thrown, and that is intended.
std::wstring PageHit(const std::wstring& screen, const HitOrigin& origin);
std::wstring EventHit(const std::wstring& category, const std::wstring& action, const HitOrigin& origin);

// The id of this machine in a hit: what stands between the braces of a GUID's text, or all of it, escaped.
std::wstring ClientId(std::wstring_view guid);

}  // namespace tarvik
