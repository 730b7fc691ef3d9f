#pragma once

#include <windows.h>
#include <oaidl.h>

#include "tarvik/script_object.h"

namespace tarvik {

// Starts `zip`, which reports through its functions. A failure to start is returned or thrown.
HRESULT StartZip(IDispatch* plugin, const ScriptObject& options);

}  // namespace tarvik
