#include "cli/command_line_app.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

#include "cli/console.h"
#include "cli/failure.h"
#include "cli/suggestion.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

bool IsOption(std::string_view word) {
    return word.size() > 1 && word.front() == '-';
}

// "usage: tarvik-pack build FOLDER --output APP [OPTIONS]" names all that is required, and [OPTIONS] if there
// are any besides --help.
class HelpFormatter : public CLI::Formatter {
  public:
    HelpFormatter() { label("Positionals", "Arguments"); }

    std::string make_usage(const CLI::App* app, std::string name) const override {
        std::string usage = "usage: " + name;
        bool hasOptions = false;
        for (const CLI::Option* option : app->get_options()) {
            if (option->get_required()) {
                usage += " " + option->get_name() + make_option_opts(option);
            } else {
                hasOptions = hasOptions || option != app->get_help_ptr();
            }
        }
        if (hasOptions) usage += " [OPTIONS]";
        if (app->get_require_subcommand_min() > 0) usage += " COMMAND";
        return usage + "\n";
    }
    std::string make_description(const CLI::App* app) const override {
        return app->get_description() + "\n\n";
    }
    std::string make_option_opts(const CLI::Option* option) const override {
        const std::string& label = option->get_option_text();
        return label.empty() ? "" : " " + label;
    }
};

const CLI::App& ChosenCommand(const CLI::App& app) {
    const auto chosen = app.get_subcommands();
    return chosen.empty() ? app : *chosen.front();
}

// The words that `word` may be a misspelling of.
std::vector<std::string> Candidates(const CLI::App& command, const std::string& word) {
    std::vector<std::string> candidates;
    if (IsOption(word)) {
        for (const CLI::Option* option : command.get_options()) {
            for (const std::string& name : option->get_lnames())
                candidates.push_back("--" + name);
        }
    } else {
        for (const CLI::App* subcommand : command.get_subcommands({}))
            candidates.push_back(subcommand->get_name());
    }
    return candidates;
}

std::string UnknownWord(const CLI::App& command, const std::string& word) {
    const std::string name = word.substr(0, IsOption(word) ? word.find('=') : word.size());
    const auto candidates = Candidates(command, name);
    const std::string suggestion = ClosestWord(name, candidates);
    return (IsOption(word)       ? "unknown option "
            : candidates.empty() ? "unexpected argument "
                                 : "unknown command ") +
           name + (suggestion.empty() ? "" : "; did you mean " + suggestion + "?");
}

// An unknown word is the likeliest cause of any error.
std::string Describe(const CLI::App& app, const CLI::ParseError& error) {
    const auto unknown = app.remaining(true);
    const auto first = std::ranges::find_if(unknown, [](const std::string& word) { return word != "--"; });
    if (first != unknown.end()) return UnknownWord(ChosenCommand(app), *first);
    if (app.get_require_subcommand_min() > 0 && app.get_subcommands().empty()) return "a command is required";
    std::string reason = error.what();
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ArgumentMismatch))
        return reason.substr(0, reason.find(':')) + " takes exactly one value";
    return reason;
}

// In reverse order, as CLI11 expects them. It takes the argument after "--name=" for the value, so an empty
// value becomes an argument of its own.
std::vector<std::string> Prepare(std::span<wchar_t* const> arguments) {
    std::vector<std::string> prepared;
    bool areOperands = false;
    for (const wchar_t* const wide : arguments) {
        std::string argument = Narrow(wide);
        areOperands = areOperands || argument == "--";
        const bool hasEmptyValue =
            !areOperands && argument.starts_with("--") && argument.find('=') == argument.size() - 1;
        if (hasEmptyValue) argument.pop_back();
        prepared.push_back(std::move(argument));
        if (hasEmptyValue) prepared.emplace_back();
    }
    std::ranges::reverse(prepared);
    return prepared;
}

}  // namespace

CommandLineApp::CommandLineApp(const std::string& program, const std::string& version,
                               const std::string& description)
    : App(description, program) {
    // Commands inherit all of these but the version.
    group("Commands");
    allow_windows_style_options(false);  // a slash begins a path
    set_help_flag("-h,--help", "Print this help");
    formatter(std::make_shared<HelpFormatter>());
    set_version_flag("--version", program + " " + version, "Print the version");
}

void CommandLineApp::Run(std::span<wchar_t* const> arguments) {
    try {
        parse(Prepare(arguments));
    } catch (const CLI::CallForHelp&) {
        Console::Out().Write(Widen(help()));
    } catch (const CLI::CallForVersion& version) {
        Console::Out().Write(Widen(version.what()) + L"\n");
    } catch (const CLI::ParseError& error) {
        const CLI::App& command = ChosenCommand(*this);
        const std::string name = command.get_parent() ? get_name() + " " + command.get_name() : get_name();
        throw UsageError(Widen(Describe(*this, error) + "\n" + HelpFormatter().make_usage(&command, name) +
                               "Try '" + name + " --help' for more."));
    }
}

CLI::Option* AddPath(CLI::App& command, const char* name, const char* label, std::wstring& path,
                     const char* description) {
    return AddText(command, name, label, path, description)->check([](const std::string& text) {
        return std::string(text.empty() ? "the path is empty" : "");
    });
}

}  // namespace tarvik
