#pragma once

#include <windows.h>
#include <oaidl.h>

#include "tarvik/options.h"

namespace tarvik {

// Starts `unzip`, which reports through its functions. A failure to start is returned or thrown.
HRESULT StartUnzip(IDispatch* plugin, const Options& options);

}  // namespace tarvik
