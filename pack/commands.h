#pragma once

#include <optional>
#include <string>

#include "base/engine_choice.h"
#include "pack/version_info.h"

namespace tarvik {

// Only the folder and the output are required.
struct BuildOptions {
    std::wstring folder;
    std::wstring output;
    std::wstring host;
    std::wstring icon;
    std::optional<std::wstring> name;  // by default, that of the output
    Version version = {1};
    std::wstring company;
    std::wstring copyright;
    EngineChoice engine = EngineChoice::kEither;
};

// Each command throws a Failure.
void NewApplication(const std::wstring& folder);
void BuildProgram(const BuildOptions& options);
void ListProgram(const std::wstring& program);
void ExtractProgram(const std::wstring& program, const std::wstring& folder);

}  // namespace tarvik
