#include <algorithm>
#include <cwchar>

#include "cli/command_line_app.h"
#include "cli/console.h"
#include "cli/failure.h"
#include "cli/interrupt.h"
#include "cli/program.h"
#include "log_viewer/debug_output.h"
#include "log_viewer/process_names.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr const char* kDescription =
    R"(Prints what pages write with console.log, and whatever else programs of this
session write to the debugger's channel: the time, the process and the name of
its program, and the text. Ctrl+C ends it.)";

constexpr const char* kNotes = R"(Examples:
  tarvik-log                      prints what all programs write
  tarvik-log --process app.exe    prints what one program writes

A program that runs in a debugger writes to that alone. The channel has one
reader in a session, so no other viewer can run at the same time. A program with
more privileges than the viewer may be out of its reach.)";

std::wstring TimeOfDay() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    wchar_t text[16];
    swprintf(text, std::size(text), L"%02u:%02u:%02u.%03u", now.wHour, now.wMinute, now.wSecond,
             now.wMilliseconds);
    return text;
}

// Prints at least one line. A line end at the end of the text does not begin another.
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

// Returns when the user interrupts or the reader closes the output.
void Print(DebugOutput& output, const std::optional<std::wstring>& wanted) {
    ProcessNames names;
    const HANDLE events[] = {Interrupt::Event(), output.Ready()};
    while (WaitForMultipleObjects(2, events, FALSE, INFINITE) == WAIT_OBJECT_0 + 1) {
        const DebugMessage message = output.Take();
        const std::wstring& name = names.Of(message.process);
        if (wanted && !Matches(*wanted, message.process, name)) continue;
        const std::wstring start =
            TimeOfDay() + L" " + std::to_wstring(message.process) + L" " + name + L": ";
        if (!PrintLines(start, Widen(message.text, CP_ACP))) return;
    }
}

void Run(std::span<wchar_t* const> arguments) {
    std::optional<std::wstring> wanted;
    CommandLineApp app("tarvik-log", TARVIK_VERSION, kDescription);
    AddText(app, "--process", "APP", wanted, "Print one program only, by its file name or process id")
        ->check([](const std::string& text) { return std::string(text.empty() ? "the name is empty" : ""); });
    app.footer(kNotes);
    app.callback([&] {
        auto output =
            WithContext(L"The debugger's channel cannot be read", [] { return DebugOutput::Open(); });
        if (!output) throw Failure(L"Another viewer is reading the debugger's channel. Close it first.");
        Print(*output, wanted);
    });
    app.Run(arguments);
}

}  // namespace

}  // namespace tarvik

int wmain(int count, wchar_t** words) {
    return tarvik::RunProgram(L"tarvik-log", [&] {
        tarvik::Run(std::span<wchar_t* const>(words, static_cast<size_t>(count)).subspan(1));
    });
}
