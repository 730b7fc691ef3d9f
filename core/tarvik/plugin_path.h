#pragma once

#include <string>

#include "tarvik/plugin.h"

namespace tarvik {

// A URL or path of script, made absolute against the page. Empty if that fails, and for a null core, which a
// plug-in has that script asks for while its window is being destroyed.
std::wstring ResolveUrl(TVK::ICore* core, const std::wstring& url);

// The same for a path; a file URL becomes its path.
std::wstring ResolvePath(TVK::ICore* core, const std::wstring& path);

}  // namespace tarvik
