#pragma once

#include "tarvik/plugin.h"
#include "plugins/system/system_calls.h"
#include "tarvik/options.h"

namespace tarvik {

// Opens a file, a program or a URL. With `exitCallback` S_OK means that it was started, and the end of the
// process will be told. Without it the answer is the other way round, S_OK if it was not started: that is
// intended, scripts are written against it. `plugin` is kept alive until the end has been told.
HRESULT ExecuteByShell(SystemCalls& calls, TVK::ICore* core, IDispatch* plugin, const Options& options);

}  // namespace tarvik
