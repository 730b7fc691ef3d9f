#pragma once

#include <windows.h>

#include "tarvik/owners.h"

namespace tarvik {

// Assigns a process to a new job, which kills its processes when the handle is closed, also because this
// process ends. Has no effect if this process is in a job that allows no nested one.
UniqueHandle AssignToJob(HANDLE process);

}  // namespace tarvik
