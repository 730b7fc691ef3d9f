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

// "usage: tarvik-pack build FOLDER -o APP [OPTIONS]" names all that is required, and [OPTIONS] if there are
// any besides --help.
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

// The words that may stand where `word` does.
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

// A word that the parser could not place is the likeliest reason of whatever it reports.
std::string Describe(const CLI::App& app, const CLI::ParseError& error) {
    const auto unknown = app.remaining(true);
    const auto first = std::ranges::find_if(unknown, [](const std::string& word) { return word != "--"; });
    if (first != unknown.end()) return UnknownWord(ChosenCommand(app), *first);
    if (app.get_require_subcommand_min() > 0 && app.get_subcommands().empty()) return "a command is required";
    const std::string reason = error.what();
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error))
        return reason.substr(0, reason.find(':')) + " takes exactly one value";
    return reason;
}

// Reversed, as the parser takes them. It takes the next word for the value of "--name=", so the empty value
// becomes a word.
std::vector<std::string> ToParse(std::span<wchar_t* const> words) {
    std::vector<std::string> toParse;
    bool areOperands = false;
    for (const wchar_t* const wide : words) {
        std::string word = Narrow(wide);
        areOperands = areOperands || word == "--";
        const bool hasEmptyValue =
            !areOperands && word.starts_with("--") && word.find('=') == word.size() - 1;
        if (hasEmptyValue) word.pop_back();
        toParse.push_back(std::move(word));
        if (hasEmptyValue) toParse.emplace_back();
    }
    std::ranges::reverse(toParse);
    return toParse;
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
        parse(ToParse(arguments));
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
