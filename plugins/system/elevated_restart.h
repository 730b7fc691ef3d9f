#pragma once

#include <string>

#include "app/command_line/command_line.h"
#include "plugins/system/system_calls.h"

namespace tarvik {

// Ends this program and starts a new instance that prompts for elevation, and returns E_ABORT, so that the
// calling script stops. The program ends even if the user declines. Returns S_OK if it is elevated already.
HRESULT RestartElevated(SystemCalls& calls);

// The arguments for the new instance, each after a space. By design they are not quoted, so an argument that
// contains a space arrives as two.
std::wstring RestartArguments(const CCommandLine& line);

}  // namespace tarvik
