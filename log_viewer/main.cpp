#include <algorithm>
#include <cwchar>

#include "tarvik/text.h"
#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/failure.h"
#include "cli/interrupt.h"
#include "cli/program.h"
#include "log_viewer/debug_output.h"
#include "log_viewer/process_names.h"

namespace tarvik {

namespace {

constexpr const wchar_t* kHelp =
    LR"(tarvik-log prints what pages write with console.log, and all else that programs
of this session write to the debugger's channel: the time, the process and the
name of its program, and the text. Ctrl+C ends it.

  tarvik-log                     of all programs
  tarvik-log --process app.exe   of one program, named by its file or its id
  tarvik-log --help, --version

Programs that a debugger runs are heard by that alone. The channel has one
reader in a session, so no other viewer of it can run meanwhile. A viewer that
runs with more rights than a program may not hear it.
)";

constexpr Option kOptions[] = {{L"--process"}, {L"--help", false}, {L"--version", false}};

std::wstring TimeOfDay() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    wchar_t text[16];
    swprintf(text, std::size(text), L"%02u:%02u:%02u.%03u", now.wHour, now.wMinute, now.wSecond,
             now.wMilliseconds);
    return text;
}

// A text has one line at least, and a line end at its end begins no further one.
bool PrintLines(const std::wstring& start, std::wstring_view text) {
    do {
        const size_t end = std::min(text.find(L'\n'), text.size());
        std::wstring_view line = text.substr(0, end);
        if (line.ends_with(L'\r')) line.remove_suffix(1);
        if (!Console::Out().Write(start + std::wstring(line) + L"\n")) return false;
        text.remove_prefix(std::min(end + 1, text.size()));
    } while (!text.empty());
    return true;
}

// Until the user wishes the end, or nobody reads what is printed.
void Print(DebugOutput& output, const std::optional<std::wstring>& wanted) {
    ProcessNames names;
    const HANDLE events[] = {Interrupt::Event(), output.Ready()};
    while (WaitForMultipleObjects(2, events, FALSE, INFINITE) == WAIT_OBJECT_0 + 1) {
        const DebugMessage message = output.Take();
        const std::wstring& name = names.Of(message.process);
        if (wanted && !IsMeant(*wanted, message.process, name)) continue;
        const std::wstring start =
            TimeOfDay() + L" " + std::to_wstring(message.process) + L" " + name + L": ";
        if (!PrintLines(start, Widen(message.text, CP_ACP))) return;
    }
}

void Run(const Arguments& arguments) {
    if (!arguments.Operands().empty()) throw UsageError(L"There is no operand to give.");
    if (arguments.Has(L"--help")) {
        Console::Out().Write(kHelp);
    } else if (arguments.Has(L"--version")) {
        Console::Out().Write(L"tarvik-log " TARVIK_VERSION L"\n");
    } else {
        const auto wanted = arguments.Value(L"--process");
        if (wanted && wanted->empty()) throw UsageError(L"--process takes a file name or an id.");
        auto output = Explained(L"The debugger's channel cannot be read", [] { return DebugOutput::Open(); });
        if (!output) throw Failure(L"Another viewer reads the debugger's channel already. End it first.");
        Print(*output, wanted);
    }
}

}  // namespace

}  // namespace tarvik

int wmain(int count, wchar_t** words) {
    return tarvik::RunProgram(L"tarvik-log", [&] {
        const std::span<wchar_t* const> all(words, static_cast<size_t>(count));
        tarvik::Run(tarvik::Arguments(all.subspan(1), tarvik::kOptions));
    });
}
