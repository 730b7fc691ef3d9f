#pragma once

#include <span>
#include <string>

#include <CLI/CLI.hpp>

#include "tarvik/text.h"

namespace tarvik {

// The command line of a console program, in UTF-8, with --help for it and each of its commands, and
// --version.
class CommandLineApp : public CLI::App {
  public:
    CommandLineApp(const std::string& program, const std::string& version, const std::string& description);

    // Parses the arguments of wmain and runs the callback of the command, or prints the help or the version
    // if they request it. Throws a UsageError.
    void Run(std::span<wchar_t* const> arguments);
};

// Adds a positional argument ("FOLDER") or an option ("--icon"). The help shows `label` for its value.
template <class Text>
CLI::Option* AddText(CLI::App& command, const char* name, const char* label, Text& value,
                     const char* description) {
    const auto store = [&value](const std::string& text) { value = Widen(text); };
    return command.add_option_function<std::string>(name, store, description)->option_text(label);
}

// The same for a path, which must not be empty.
CLI::Option* AddPath(CLI::App& command, const char* name, const char* label, std::wstring& path,
                     const char* description);

}  // namespace tarvik
