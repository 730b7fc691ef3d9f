#pragma once

#include <string>

#include "host/plugin_registry/plugin_base.h"
#include "tarvik/options.h"

namespace tarvik {

// A path option, resolved against the page. URLs and empty paths stay unchanged.
inline std::wstring PathOption(TVK::ICore* core, const Options& options, const wchar_t* name) {
    const std::wstring path = options.Text(name).value_or(L"");
    return path.empty() ? path : ResolveUrl(core, path);
}

}  // namespace tarvik
