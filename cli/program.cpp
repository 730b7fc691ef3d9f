#include "cli/program.h"

#include <string>

#include "base/library_search.h"
#include "tarvik/status.h"
#include "cli/console.h"
#include "cli/failure.h"
#include "cli/interrupt.h"

namespace tarvik {

namespace {

int Complain(std::wstring_view name, const std::wstring& text, int code) {
    Console::Error().Write(std::wstring(name) + L": " + text + L"\n");
    return code;
}

}  // namespace

int RunProgram(std::wstring_view name, const std::function<void()>& work) {
    UseSystemLibrariesOnly();
    const Interrupt interrupt;
    try {
        work();
        return kGood;
    } catch (const UsageError& error) {
        return Complain(name, error.Text(), kWrongUsage);
    } catch (const Failure& failure) {
        return Complain(name, failure.Text(), kFailed);
    } catch (...) {
        return Complain(name, Reason(CaughtStatus()) + L".", kFailed);
    }
}

}  // namespace tarvik
