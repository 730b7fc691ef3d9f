#pragma once

#include <string>

#include "host/plugin_registry/plugin_base.h"
#include "tarvik/script_object.h"

namespace tarvik {

// A path option, resolved against the page. URLs and empty paths stay unchanged.
inline std::wstring PathOption(TVK::ICore* core, const ScriptObject& options, const wchar_t* name) {
    const std::wstring path = options.Get<std::wstring>(name, {});
    return path.empty() ? path : ResolveUrl(core, path);
}

}  // namespace tarvik
