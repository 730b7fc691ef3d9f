#pragma once

#include <windows.h>

#include "tarvik/options.h"

namespace tarvik {

// Starts a walk on a thread of its own: callback(path, attributes, size) for each file and folder, a false
// from which ends the walk, then completed(). Without both functions there is nobody to tell, and nothing
// starts. A thread that cannot be started gives the system's error; a failure may also be thrown.
HRESULT StartEnumFiles(const Options& options);

}  // namespace tarvik
