#include "plugins/system/elevated_restart.h"

#include "base/path.h"

namespace tarvik {

HRESULT RestartElevated(SystemCalls& calls) {
    if (calls.IsAdministrator()) return S_OK;
    const std::wstring program = ExecutablePath();
    const CCommandLine line;
    if (program.empty() || !line.argv) return S_OK;
    calls.Open(L"runas", program.c_str(), RestartArguments(line).c_str(), nullptr);
    calls.QuitProgram();
    return E_ABORT;
}

std::wstring RestartArguments(const CCommandLine& line) {
    std::wstring arguments;
    for (int i = 1; i < line.argc; ++i)
        arguments.append(L" ").append(line.argv[i]);
    return arguments;
}

}  // namespace tarvik
