#pragma once

#include <windows.h>
#include <shobjidl.h>

#include <optional>

#include "tarvik/com_ptr.h"

namespace tarvik {

// Null if the system's taskbar cannot show progress.
ComPtr<ITaskbarList3> CreateTaskbarList();

// The flag for a state's name, ignoring case.
std::optional<TBPFLAG> ProgressFlag(const wchar_t* state);

}  // namespace tarvik
