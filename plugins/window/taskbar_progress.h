#pragma once

#include <windows.h>
#include <shobjidl.h>

#include <optional>

#include "tarvik/com_ptr.h"

namespace tarvik {

// Null where the system shows no progress in its task bar.
ComPtr<ITaskbarList3> FindTaskbar();

// The system's flag for a state as script names it, in any case of letters.
std::optional<TBPFLAG> ProgressFlag(const wchar_t* state);

}  // namespace tarvik
