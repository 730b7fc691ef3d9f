#include "host/plugin_registry/plugin_library.h"

#include <filesystem>

#include "host/plugin_registry/plugin_registry.h"
#include "tarvik/text.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

std::wstring Sample(const wchar_t* name) {
    return ExecutablePath() + L"\\..\\sample_libraries\\" + name;
}

// The headers of a library for this machine.
std::string ImageFor(WORD machine) {
    IMAGE_DOS_HEADER dos = {};
    dos.e_magic = IMAGE_DOS_SIGNATURE;
    dos.e_lfanew = sizeof dos;
    const DWORD signature = IMAGE_NT_SIGNATURE;
    IMAGE_FILE_HEADER header = {};
    header.Machine = machine;
    std::string image(reinterpret_cast<const char*>(&dos), sizeof dos);
    image.append(reinterpret_cast<const char*>(&signature), sizeof signature);
    return image.append(reinterpret_cast<const char*>(&header), sizeof header);
}

TEST(PluginLibrary, IsFreedWithoutErrorIfItHasNoPlugin) {
    for (const wchar_t* name :
         {L"no_export.dll", L"wrong_kind.dll", L"no_descriptor.dll", L"failing.dll", L"throwing.dll"}) {
        SCOPED_TRACE(Narrow(name));
        DebugChannel channel;
        EXPECT_THAT(LoadPluginLibrary(Sample(name)), HasStatus(S_OK));
        EXPECT_FALSE(GetModuleHandleW(name));
        EXPECT_EQ(channel.Texts().size(), 1u) << "the library was not loaded and freed";
    }
    for (const wchar_t* name : {L"none", L"wrongKind", L"noDescriptor", L"failing", L"throwing"})
        EXPECT_FALSE(FindPlugin(name));
    EXPECT_FALSE(HasPluginLibraries());
}

TEST(PluginLibrary, RejectsFilesThatAreNo64BitImages) {
    const TempFolder folder;
    folder.Write(L"y.dll\\inside", "");
    for (const auto& path : {folder.Write(L"32.dll", ImageFor(IMAGE_FILE_MACHINE_I386)),
                             folder.Write(L"text.dll", "no image"), folder.Write(L"empty.dll", ""),
                             folder.Write(L"cut.dll", ImageFor(IMAGE_FILE_MACHINE_AMD64).substr(0, 70)),
                             folder / L"y.dll", folder / L"missing.dll"}) {
        EXPECT_THAT(LoadPluginLibrary(path), HasStatus(E_FAIL)) << Narrow(path);
    }
    // The header is valid; that the system cannot load the file is not reported.
    EXPECT_THAT(LoadPluginLibrary(folder.Write(L"64.dll", ImageFor(IMAGE_FILE_MACHINE_AMD64))),
                HasStatus(S_OK));
    EXPECT_FALSE(HasPluginLibraries());
}

// The loader would find a library with the same relative path beside the executable first.
TEST(PluginLibrary, IsLoadedFromTheCurrentFolder) {
    namespace fs = std::filesystem;
    const TempFolder folder;
    folder.Write(L"sample_libraries\\inside", "");
    fs::copy_file(Sample(L"no_export.dll"), folder / L"sample_libraries\\good.dll");
    const fs::path back = fs::current_path();
    fs::current_path(folder.Path());
    DebugChannel channel;
    EXPECT_THAT(LoadPluginLibrary(L"sample_libraries\\good.dll"), HasStatus(S_OK));
    EXPECT_THAT(LoadPluginLibrary(L""), HasStatus(E_FAIL));
    fs::current_path(back);
    EXPECT_THAT(channel.Texts(), ElementsAre("no_export"));
    EXPECT_FALSE(HasPluginLibraries());
}

}  // namespace
}  // namespace tarvik
