#include <windows.h>

#include <optional>

#include "base/path.h"
#include "base/same_file.h"
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

constexpr WORD kMainIcon = 1000;  // the icon of the host's windows
constexpr WORD kVersion = 1;      // the id that the system looks for

std::wstring DefaultHost() {
    const std::wstring self = ExecutablePath();
    return self.substr(0, self.rfind(L'\\') + 1) + L"tarvik.exe";
}

std::wstring StemOf(const std::wstring& path) {
    const std::wstring file = FileNameOf(path);
    return file.substr(0, file.rfind(L'.'));
}

void CheckOutput(const std::wstring& output, const std::wstring& folder, const std::wstring& host) {
    const auto reject = [&](const std::wstring& why) {
        throw Failure(L"The output \"" + output + L"\" " + why);
    };
    const DWORD attributes = GetFileAttributesW(output.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && attributes & FILE_ATTRIBUTE_DIRECTORY)
        reject(L"is a folder. Choose the name of a file.");
    if (IsInside(output, folder)) reject(L"is inside the folder to pack. Choose a path outside it.");
    if (IsSameFile(output, host)) reject(L"is the host itself. Choose another name.");
}

void UpdateResources(const std::wstring& program, const VersionInfo& version, EngineChoice engine,
                     const std::optional<IconFile>& icon) {
    ResourceUpdate update(program);
    update.Set(RT_VERSION, kVersion, VersionResource(version));
    const std::string_view name = kEngineNames[static_cast<size_t>(engine)];
    update.Set(RT_RCDATA, kEngineResource, {reinterpret_cast<const std::uint8_t*>(name.data()), name.size()});
    if (icon) icon->AddTo(update, kMainIcon);
    update.Apply();
}

}  // namespace

// Checks the user's input before it writes anything. The resources come first, because updating them would
// move an attached archive.
void BuildProgram(const BuildOptions& options) {
    const std::wstring output = FullPath(options.output);
    const std::wstring host = options.host.empty() ? DefaultHost() : FullPath(options.host);
    const VersionInfo version = {options.name.value_or(StemOf(output)), options.version, options.company,
                                 options.copyright};
    const std::vector<Entry> entries = ReadApplication(options.folder);
    CheckHost(host);
    std::optional<IconFile> icon;
    if (!options.icon.empty()) icon.emplace(FullPath(options.icon));
    CheckOutput(output, FullPath(options.folder), host);

    UnfinishedFile program(host, output);
    UpdateResources(program.Path(), version, options.engine, icon);
    AttachArchive(program.Path(), entries);
    CheckAttached(program.Path(), entries);
    const ULONGLONG size = program.Finish();
    Console::Out().Write(output + L": " + WithCommas(size) + L" bytes, with " + WithCommas(entries.size()) +
                         L" files and folders\n");
}

}  // namespace tarvik
