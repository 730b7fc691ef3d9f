#pragma once

#include <string>

#include "tarvik/plugin.h"

namespace tarvik {

// Resolves a URL or a path against the page of a window, as TVK::ICore::ResolveUrl does. Empty on failure,
// and for a null `core`. On the main thread. Throws std::bad_alloc.
std::wstring ResolveUrl(TVK::ICore* core, const std::wstring& url);

// The same, except that a file URL becomes a path.
std::wstring ResolvePath(TVK::ICore* core, const std::wstring& path);

}  // namespace tarvik
