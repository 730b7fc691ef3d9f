#pragma once

#include <optional>
#include <string>

#include "pack/version_info.h"

namespace tarvik {

// Of these, only the folder and the output are never empty.
struct BuildOptions {
    std::wstring folder;
    std::wstring output;
    std::wstring host;
    std::wstring icon;
    std::optional<std::wstring> name;  // by default, that of the output
    Version version = {1};
    std::wstring company;
    std::wstring copyright;
};

// Each command throws a Failure that says why it was not carried out.
void NewApplication(const std::wstring& folder);
void BuildProgram(const BuildOptions& options);
void ListProgram(const std::wstring& program);
void ExtractProgram(const std::wstring& program, const std::wstring& folder);

}  // namespace tarvik
