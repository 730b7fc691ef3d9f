#include "tests/plugins/file/file_fixture.h"

#include "base/module_function.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

std::string UnixPath(const std::wstring& path) {
    using Translate = char* __cdecl(const wchar_t*);
    auto* const translate = FindFunction<Translate>(L"kernel32.dll", "wine_get_unix_file_name");
    return translate ? translate(path.c_str()) : std::string();
}

// Wine returns no handle to a Unix process, so the caller waits for its effect.
void RunUnixProgram(const std::string& command) {
    std::wstring line = Widen(command);
    STARTUPINFOW start = {sizeof start};
    PROCESS_INFORMATION process = {};
    CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process);
    const UniqueHandle thread(process.hThread), ended(process.hProcess);
}

}  // namespace

Completion File::Run(const wchar_t* member, const std::wstring& src, const std::wstring& dest,
                     bool replaceExisting) const {
    OptionObject options;
    options.Set(L"srcPath", src.c_str()).Set(L"destPath", dest.c_str());
    options.Set(L"replaceExisting", replaceExisting);
    return Run(member, options);
}

FolderLink::FolderLink(const std::wstring& link, const std::wstring& target) : link_(link) {
    CreateSymbolicLinkW(link.c_str(), target.c_str(), SYMBOLIC_LINK_FLAG_DIRECTORY);
    if (*this || UnixPath(link).empty()) return;
    RunUnixProgram("/bin/ln -s " + UnixPath(target) + " " + UnixPath(link));
    PumpUntil([this] { return FileExists(link_); });
}

FolderLink::~FolderLink() {
    if (!*this || RemoveDirectoryW(link_.c_str())) return;
    RunUnixProgram("/bin/rm " + UnixPath(link_));
    PumpUntil([this] { return !FileExists(link_); });
}

}  // namespace tarvik
