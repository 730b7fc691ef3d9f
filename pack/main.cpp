#include "cli/command_line_app.h"
#include "cli/program.h"
#include "pack/commands.h"

namespace tarvik {

namespace {

constexpr const char* kExamples = R"(Examples:
  tarvik-pack new garden                    creates a small application to start from
  tarvik-pack build garden -o garden.exe    packs it into one program
  tarvik-pack list garden.exe               lists the files in the program
  tarvik-pack extract garden.exe copy       extracts them into a new folder

'tarvik-pack COMMAND --help' describes the options of a command.
The exit code is 0 for success, 1 for a failure and 2 for a wrong command line.)";

constexpr const char* kBuildNotes =
    R"(FOLDER contains resource\index.html, the first page of the application. Everything
in FOLDER is packed, including hidden files.

Example:
  tarvik-pack build garden -o garden.exe --icon garden.ico --name Garden)";

// The arguments of all commands.
struct Arguments {
    std::wstring folder;
    std::wstring program;
    BuildOptions build;
};

void AddNew(CLI::App& app, Arguments& arguments) {
    auto& command = *app.add_subcommand("new", "Create a small application to start from");
    AddPath(command, "FOLDER", "", arguments.folder, "A new or empty folder")->required();
    command.callback([&] { NewApplication(arguments.folder); });
}

template <class Text>
void AddDescription(CLI::App& command, const char* name, Text& text, const char* description) {
    AddText(command, name, "TEXT", text, description)->check([](const std::string& given) {
        constexpr size_t kMaxLength = 1000;
        return std::string(Widen(given).size() > kMaxLength ? "the text is longer than 1,000 characters"
                                                            : "");
    });
}

void AddVersion(CLI::App& command, Version& version) {
    const auto parse = [&version](const std::string& text) {
        const auto parsed = ParseVersion(text);
        if (!parsed)
            throw CLI::ValidationError("--version",
                                       "'" + text + "' is not one to four numbers of 0 to 65535");
        version = *parsed;
    };
    command
        .add_option_function<std::string>("--version", parse,
                                          "Its version, one to four numbers (default: 1.0)")
        ->option_text("1.2.3");
}

void AddEngine(CLI::App& command, EngineChoice& engine) {
    const auto parse = [&engine](const std::string& name) {
        const auto parsed = ParseEngine(name);
        if (!parsed)
            throw CLI::ValidationError("--engine", "'" + name + "' is none of: system, chromium, either");
        engine = *parsed;
    };
    command
        .add_option_function<std::string>(
            "--engine", parse, "What shows its pages: system, chromium or either (default: either)")
        ->option_text("NAME");
}

void AddBuild(CLI::App& app, Arguments& arguments) {
    BuildOptions& options = arguments.build;
    auto& command = *app.add_subcommand("build", "Pack an application into one program");
    AddPath(command, "FOLDER", "", options.folder, "The application's folder")->required();
    AddPath(command, "-o,--output", "APP", options.output, "The program to create; replaces an existing file")
        ->required();
    AddPath(command, "--host", "FILE", options.host, "The host (default: tarvik.exe beside tarvik-pack.exe)");
    AddPath(command, "--icon", "FILE", options.icon, "An .ico file with the program's icon");
    AddDescription(command, "--name", options.name, "The program's name (default: that of APP)");
    AddVersion(command, options.version);
    AddDescription(command, "--company", options.company, "Its publisher");
    AddDescription(command, "--copyright", options.copyright, "Its copyright notice");
    AddEngine(command, options.engine);
    command.footer(kBuildNotes);
    command.callback([&] { BuildProgram(options); });
}

void AddList(CLI::App& app, Arguments& arguments) {
    auto& command = *app.add_subcommand("list", "List the files in a packed program: time, size, name");
    AddPath(command, "APP", "", arguments.program, "A packed program")->required();
    command.callback([&] { ListProgram(arguments.program); });
}

void AddExtract(CLI::App& app, Arguments& arguments) {
    auto& command = *app.add_subcommand("extract", "Extract the files of a packed program into a new folder");
    AddPath(command, "APP", "", arguments.program, "A packed program")->required();
    AddPath(command, "FOLDER", "", arguments.folder, "A new or empty folder")->required();
    command.callback([&] { ExtractProgram(arguments.program, arguments.folder); });
}

void Run(std::span<wchar_t* const> arguments) {
    Arguments parsed;
    CommandLineApp app("tarvik-pack", TARVIK_VERSION,
                       "Packs applications written as web pages into programs.");
    app.require_subcommand(1);
    AddNew(app, parsed);
    AddBuild(app, parsed);
    AddList(app, parsed);
    AddExtract(app, parsed);
    app.footer(kExamples);
    app.Run(arguments);
}

}  // namespace

}  // namespace tarvik

int wmain(int count, wchar_t** words) {
    return tarvik::RunProgram(L"tarvik-pack", [&] {
        tarvik::Run(std::span<wchar_t* const>(words, static_cast<size_t>(count)).subspan(1));
    });
}
