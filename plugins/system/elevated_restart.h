#pragma once

#include <string>

#include "app/command_line/command_line.h"
#include "plugins/system/system_calls.h"

namespace tarvik {

// Ends this program in favour of a new instance that asks the user for an administrator's rights. E_ABORT
// then, so that script goes no further; it ends also when the user refuses. S_OK if the rights are there.
HRESULT RestartElevated(SystemCalls& calls);

// The arguments for the new instance, each behind a blank. They are not quoted, so one with a blank in it
// arrives as two; that is intended.
std::wstring RestartArguments(const CCommandLine& line);

}  // namespace tarvik
