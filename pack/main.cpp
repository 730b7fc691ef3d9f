#include <algorithm>
#include <iterator>

#include "cli/console.h"
#include "cli/failure.h"
#include "cli/program.h"
#include "pack/commands.h"

namespace tarvik {

namespace {

constexpr const wchar_t* kHelp =
    LR"(tarvik-pack makes programs of applications that are written as web pages.

  tarvik-pack new FOLDER            writes a small application to start from
  tarvik-pack build FOLDER -o APP   makes one program of an application's folder
  tarvik-pack list APP              lists what a program carries: time, size, name
  tarvik-pack extract APP FOLDER    takes it out again, into a new folder
  tarvik-pack --help, --version

FOLDER holds resource\index.html, the page that the application begins with. All
that is in FOLDER is packed, hidden files too.

Options of build:
  -o APP              the program to make; one that is there is replaced at the end
  --host FILE         the host, by default tarvik.exe beside tarvik-pack.exe
  --icon FILE         an .ico file with the program's icon
  --name TEXT         its name, by default that of APP
  --version 1.2.3     its version, one to four numbers; by default 1.0
  --company TEXT, --copyright TEXT

The exit code is 0 if all went well, 1 if not, and 2 for a wrong command line.
)";

constexpr Option kHelpOption = {L"--help", false};
constexpr Option kPlainOptions[] = {kHelpOption};
constexpr Option kBuildOptions[] = {kHelpOption, {L"-o"},        {L"--host"},    {L"--icon"},
                                    {L"--name"}, {L"--version"}, {L"--company"}, {L"--copyright"}};

struct Command {
    std::wstring_view name;
    std::span<const Option> options;
    size_t operands;
    const wchar_t* usage;
    void (*run)(const std::wstring& first, const Arguments& arguments);
};

constexpr Command kCommands[] = {
    {L"new", kPlainOptions, 1, L"tarvik-pack new FOLDER", NewApplication},
    {L"build", kBuildOptions, 1, L"tarvik-pack build FOLDER -o APP", BuildProgram},
    {L"list", kPlainOptions, 1, L"tarvik-pack list APP", ListProgram},
    {L"extract", kPlainOptions, 2, L"tarvik-pack extract APP FOLDER", ExtractProgram},
};

void Run(const Command& command, const Arguments& arguments) {
    if (arguments.Has(kHelpOption.name)) {
        Console::Out().Write(kHelp);
        return;
    }
    const auto& operands = arguments.Operands();
    if (operands.size() != command.operands || std::ranges::count(operands, L"") > 0)
        throw UsageError(L"It is written " + std::wstring(command.usage) + L".");
    command.run(operands.front(), arguments);
}

void Run(std::span<wchar_t* const> words) {
    if (words.empty()) throw UsageError(L"A command is missing: new, build, list or extract.");
    const std::wstring_view first = words.front();
    const auto command = std::ranges::find(kCommands, first, &Command::name);
    if (command != std::end(kCommands)) {
        Run(*command, Arguments(words.subspan(1), command->options));
    } else if (first == L"--help") {
        Console::Out().Write(kHelp);
    } else if (first == L"--version") {
        Console::Out().Write(L"tarvik-pack " TARVIK_VERSION L"\n");
    } else {
        throw UsageError(L"There is no command " + std::wstring(first) + L".");
    }
}

}  // namespace

}  // namespace tarvik

int wmain(int count, wchar_t** words) {
    return tarvik::RunProgram(L"tarvik-pack", [&] {
        tarvik::Run(std::span<wchar_t* const>(words, static_cast<size_t>(count)).subspan(1));
    });
}
