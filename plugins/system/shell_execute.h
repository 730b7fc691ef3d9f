#pragma once

#include "plugins/system/system_calls.h"
#include "tarvik/plugin.h"
#include "tarvik/script_object.h"

namespace tarvik {

// Opens a file, a program or a URL. With the option `exitCallback` S_OK means that it was started; the
// function is called when the process exits, and `plugin` is kept alive until then. Without it S_OK means
// that it was not started; required by the contract.
HRESULT ExecuteByShell(SystemCalls& calls, TVK::ICore* core, IDispatch* plugin, const ScriptObject& options);

}  // namespace tarvik
