#pragma once

#include <windows.h>
#include <oaidl.h>

#include "tarvik/options.h"

namespace tarvik {

// Starts a run of `zip`; script hears the rest from its functions. A run that cannot be started gives the
// status of the failure, or throws it.
HRESULT StartZip(IDispatch* plugin, const Options& options);

}  // namespace tarvik
