#include "host/program_end.h"

#include <windows.h>

#include "app/log/error_report.h"

namespace tarvik {

void EndProgram(const std::wstring& reason) {
    MSG message;
    if (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE)) return;
    ReportError(reason);
    PostQuitMessage(1);
}

}  // namespace tarvik
