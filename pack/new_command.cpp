#include <windows.h>

#include <string>

#include "archive/destination_folder.h"
#include "base/path.h"
#include "base/program_resource.h"
#include "base/text.h"
#include "base/write_file.h"
#include "cli/console.h"
#include "cli/failure.h"
#include "pack/commands.h"
#include "pack/paths.h"
#include "tarvik/owners.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

struct StarterFile {
    const wchar_t* resource;
    std::wstring_view name;
};

constexpr StarterFile kFiles[] = {
    {L"INDEX_HTML", L"resource\\index.html"},
    {L"STARTER_JS", L"resource\\starter.js"},
    {L"STARTER_CSS", L"resource\\starter.css"},
};

std::string_view Content(const wchar_t* name) {
    const std::string_view content = ResourceBytes(nullptr, name, RT_RCDATA);
    if (content.empty()) FailWithLastError(L"The starter application is missing");
    return content;
}

void Write(const std::wstring& path, std::string_view content) {
    WithContext(L"\"" + path + L"\" cannot be written", [&] {
        const UniqueHandle file(
            CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file) ThrowLastError();
        WriteAll(file.Get(), content.data(), content.size());
    });
}

}  // namespace

void NewApplication(const std::wstring& name) {
    const std::wstring folder = FullPath(name);
    CheckIsNewFolder(folder);
    DestinationFolder created(folder);
    if (!CreateDirectoryW((folder + L"\\resource").c_str(), nullptr))
        FailWithLastError(L"The folder \"" + folder + L"\" cannot be created");
    for (const auto& [resource, file] : kFiles)
        Write(folder + L'\\' + std::wstring(file), Content(resource));
    created.Commit();
    const std::wstring quoted = QuoteArgument(name);
    Console::Out().Write(folder + L": an application whose first page is resource\\index.html\n" +
                         L"  run it:   tarvik -d " + quoted + L"\n" + L"  pack it:  tarvik-pack build " +
                         quoted + L" -o app.exe\n");
}

}  // namespace tarvik
