#include <windows.h>

#include <optional>

#include "base/same_file.h"
#include "base/text.h"
#include "cli/console.h"
#include "cli/failure.h"
#include "pack/application.h"
#include "pack/attached_archive.h"
#include "pack/commands.h"
#include "pack/host_program.h"
#include "pack/icon_file.h"
#include "pack/numbers.h"
#include "pack/paths.h"
#include "pack/resource_update.h"
#include "pack/unfinished_file.h"
#include "pack/version_info.h"

namespace tarvik {

namespace {

constexpr WORD kMainIcon = 1000;  // what the host gives its windows
constexpr WORD kVersion = 1;      // what the system looks for

std::wstring DefaultHost() {
    const std::wstring self = ExecutablePath();
    return self.substr(0, self.rfind(L'\\') + 1) + L"tarvik.exe";
}

std::wstring Text(const Arguments& arguments, const wchar_t* option, const std::wstring& fallback = {}) {
    constexpr size_t kLongest = 1000;
    const std::wstring text = arguments.Value(option).value_or(fallback);
    if (text.size() > kLongest)
        throw UsageError(std::wstring(option) + L" takes a text of at most 1,000 letters.");
    return text;
}

std::optional<std::wstring> Path(const Arguments& arguments, const wchar_t* option) {
    const auto path = arguments.Value(option);
    if (!path) return std::nullopt;
    if (path->empty()) throw UsageError(std::wstring(option) + L" takes a path.");
    return FullPath(*path);
}

VersionInfo ReadVersionInfo(const Arguments& arguments, const std::wstring& output) {
    const std::wstring file = FileNameOf(output);
    return {Text(arguments, L"--name", file.substr(0, file.rfind(L'.'))),
            ParseVersion(arguments.Value(L"--version").value_or(L"1.0")), Text(arguments, L"--company"),
            Text(arguments, L"--copyright")};
}

void CheckOutput(const std::wstring& output, const std::wstring& folder, const std::wstring& host) {
    const auto refuse = [&](const std::wstring& why) {
        throw Failure(L"The output \"" + output + L"\" " + why);
    };
    const DWORD attributes = GetFileAttributesW(output.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && attributes & FILE_ATTRIBUTE_DIRECTORY)
        refuse(L"is a folder. Name a file.");
    if (LiesIn(output, folder)) refuse(L"lies in the folder that is packed. Name one outside.");
    if (IsSameFile(output, host)) refuse(L"is the host itself. Name another one.");
}

void Decorate(const std::wstring& program, const VersionInfo& version, const std::optional<IconFile>& icon) {
    ResourceUpdate update(program);
    update.Set(RT_VERSION, kVersion, VersionResource(version));
    if (icon) icon->PutInto(update, kMainIcon);
    update.Apply();
}

}  // namespace

// Everything that can be refused is looked at before anything is written. The resources come first, because
// they move what lies behind the program.
void BuildProgram(const std::wstring& folder, const Arguments& arguments) {
    const auto output = Path(arguments, L"-o");
    if (!output) throw UsageError(L"build needs the program to make: -o app.exe.");
    const std::wstring host = Path(arguments, L"--host").value_or(DefaultHost());
    const VersionInfo version = ReadVersionInfo(arguments, *output);
    const std::vector<Entry> entries = ReadApplication(folder);
    CheckHost(host);
    std::optional<IconFile> icon;
    if (const auto path = Path(arguments, L"--icon")) icon.emplace(*path);
    CheckOutput(*output, FullPath(folder), host);

    UnfinishedFile program(host, *output);
    Decorate(program.Path(), version, icon);
    AttachArchive(program.Path(), entries);
    CheckAttached(program.Path(), entries);
    const ULONGLONG size = program.Finish();
    Console::Out().Write(*output + L": " + Grouped(size) + L" bytes, with " + Grouped(entries.size()) +
                         L" files and folders\n");
}

}  // namespace tarvik
