#include <cwchar>

#include "base/text.h"
#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/failure.h"
#include "cli/interrupt.h"
#include "cli/program.h"
#include "log_viewer/debug_output.h"
#include "log_viewer/line_joiner.h"
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
reader in a session, so no other viewer of it can run meanwhile.
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

// Until the user wishes the end, or nobody reads what is printed.
void Print(DebugOutput& output, const std::optional<std::wstring>& wanted) {
    LineJoiner lines;
    ProcessNames names;
    const HANDLE events[] = {Interrupt::Event(), output.Ready()};
    while (WaitForMultipleObjects(2, events, FALSE, INFINITE) == WAIT_OBJECT_0 + 1) {
        const DebugMessage message = output.Take();
        const std::wstring& name = names.Of(message.process);
        if (wanted && !IsMeant(*wanted, message.process, name)) continue;
        const std::wstring start =
            TimeOfDay() + L" " + std::to_wstring(message.process) + L" " + name + L": ";
        for (const std::string& line : lines.Add(message)) {
            if (!Console::Out().Write(start + Widen(line, CP_ACP) + L"\n")) return;
        }
    }
}

void Run(const Arguments& arguments) {
    if (!arguments.Operands().empty()) throw UsageError(L"There is no operand to give.");
    if (arguments.Has(L"--help")) {
        Console::Out().Write(kHelp);
    } else if (arguments.Has(L"--version")) {
        Console::Out().Write(L"tarvik-log " TARVIK_VERSION L"\n");
    } else {
        auto output = Explained(L"The debugger's channel cannot be read", [] { return DebugOutput::Open(); });
        if (!output) throw Failure(L"Another viewer reads the debugger's channel already. End it first.");
        Print(*output, arguments.Value(L"--process"));
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
