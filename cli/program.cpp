#include "cli/program.h"

#include <string>

#include "base/library_search.h"
#include "cli/console.h"
#include "cli/failure.h"
#include "cli/interrupt.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

int ReportError(std::wstring_view name, const std::wstring& text, int code) {
    Console::Error().Write(std::wstring(name) + L": " + text + L"\n");
    return code;
}

}  // namespace

int RunProgram(std::wstring_view name, const std::function<void()>& work) {
    UseSystemLibrariesOnly();
    const Interrupt interrupt;
    try {
        work();
        return kSuccess;
    } catch (const UsageError& error) {
        return ReportError(name, error.Text(), kWrongUsage);
    } catch (const Failure& failure) {
        return ReportError(name, failure.Text(), kFailed);
    } catch (...) {
        return ReportError(name, Reason(CaughtStatus()) + L".", kFailed);
    }
}

}  // namespace tarvik
