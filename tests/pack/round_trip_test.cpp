// From a new application to the packed program and back.

#include <fstream>

#include "tarvik/text.h"
#include "tests/pack/pack_fixture.h"
#include "tests/page/program.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

TEST_F(PackTest, PacksRunsAndExtractsANewApplication) {
    EXPECT_THAT(Run({L"new", L"g\u00e4rten \u6f22"}), HasSubstr("g\u00e4rten \u6f22: an application"));
    folder_.Write(L"g\u00e4rten \u6f22\\.git\\empty", "");
    folder_.Write(L"g\u00e4rten \u6f22\\\u6f22\\data", std::string(300'000, 'x'));
    fs::create_directory(folder_ / L"g\u00e4rten \u6f22\\nothing");
    EXPECT_THAT(Run({L"build", L"g\u00e4rten \u6f22", L"-o", L"\u6f22.exe"}), HasSubstr("\u6f22.exe: "));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.Path()), {}), 2)
        << "a temporary file was left behind";

    const std::string list = Run({L"list", L"\u6f22.exe"});
    EXPECT_THAT(list, HasSubstr("      300,000  \u6f22/data\n"));
    EXPECT_THAT(list, HasSubstr("  in 9 files and folders\n"));
    // A signature is appended to a program.
    std::ofstream(fs::path(folder_ / L"\u6f22.exe"), std::ios::binary | std::ios::app)
        << std::string(9000, '\0');
    Run({L"extract", L"\u6f22.exe", L"out"});
    EXPECT_EQ(ReadTree(folder_ / L"out"), ReadTree(folder_ / L"g\u00e4rten \u6f22"));

    Program program;
    program.UseExecutable(folder_ / L"\u6f22.exe");
    program.Start();
    const HWND window = program.WindowTitled(L"My application");
    ASSERT_TRUE(window);
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(program.Wait(), 0u);
}

class PackedProgram : public PackTest {
  protected:
    void SetUp() override {
        Run({L"new", L"app"});
        folder_.Write(L"small.ico", IconFileOf(Picture()));
        Run({L"build", L"app", L"-o", L"Gute App.v2.exe", L"--icon", L"small.ico", L"--version=3.0.65535",
             L"--company", L"G\u00e4rtner & \u6f22", L"--copyright", L"\u00a9 2026"});
        const DWORD size = GetFileVersionInfoSizeW(program_.c_str(), nullptr);
        version_.resize(size);
        EXPECT_TRUE(GetFileVersionInfoW(program_.c_str(), 0, size, version_.data()));
    }

    template <class Value>
    const Value* Query(const std::wstring& path) const {
        void* value = nullptr;
        UINT length = 0;
        EXPECT_TRUE(VerQueryValueW(version_.data(), path.c_str(), &value, &length)) << Narrow(path);
        return static_cast<const Value*>(value);
    }

    const std::wstring program_ = folder_ / L"Gute App.v2.exe";
    std::vector<BYTE> version_;
};

TEST_F(PackedProgram, HasItsVersionAndNames) {
    const auto* const fixed = Query<VS_FIXEDFILEINFO>(L"\\");
    ASSERT_TRUE(fixed);
    EXPECT_EQ(fixed->dwFileVersionMS, 0x0003'0000u);
    EXPECT_EQ(fixed->dwProductVersionLS, 0xFFFF'0000u);
    const auto* const translation = Query<DWORD>(L"\\VarFileInfo\\Translation");
    ASSERT_TRUE(translation);
    EXPECT_EQ(*translation, 0x04B0'0409u);
    const std::pair<const wchar_t*, const wchar_t*> texts[] = {
        {L"ProductName", L"Gute App.v2"},    {L"FileDescription", L"Gute App.v2"},
        {L"FileVersion", L"3.0.65535.0"},    {L"ProductVersion", L"3.0.65535.0"},
        {L"LegalCopyright", L"\u00a9 2026"}, {L"CompanyName", L"G\u00e4rtner & \u6f22"}};
    for (const auto& [name, text] : texts) {
        const auto* const found = Query<wchar_t>(std::wstring(L"\\StringFileInfo\\040904B0\\") + name);
        EXPECT_STREQ(found, text);
    }
}

std::string ResourceOf(HMODULE module, WORD id, LPCWSTR type) {
    const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(id), type);
    if (!resource) return {};
    return {static_cast<const char*>(LockResource(LoadResource(module, resource))),
            SizeofResource(module, resource)};
}

TEST_F(PackedProgram, HasItsIconInsteadOfTheHosts) {
    const UniqueModule module(LoadLibraryExW(program_.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE));
    ASSERT_TRUE(module);
    // A group equals the file, except that it has a picture's id instead of its offset.
    const std::string file = IconFileOf(Picture());
    EXPECT_EQ(ResourceOf(module.Get(), 1000, RT_GROUP_ICON), file.substr(0, 18) + std::string("\1\0", 2));
    EXPECT_EQ(ResourceOf(module.Get(), 1, RT_ICON), Picture());
    EXPECT_THAT(ResourceOf(module.Get(), 1, RT_MANIFEST), HasSubstr("<assembly")) << "other resources stay";
    const UniqueIcon icon(static_cast<HICON>(
        LoadImageW(module.Get(), MAKEINTRESOURCEW(1000), IMAGE_ICON, 16, 16, LR_DEFAULTCOLOR)));
    EXPECT_TRUE(icon);
}

// The author's choice of the engine, and that of the environment variable. The system has none here.
TEST_F(PackTest, ShowsPagesWithTheChosenEngine) {
    folder_.Write(L"app\\resource\\index.html", "<script>external.window.quit(9)</script>");
    struct {
        std::vector<std::wstring> option;
        const wchar_t* variable;
        bool usesPageControl;
    } const kCases[] = {
        {{}, L"", true},
        {{L"--engine", L"either"}, L"", true},
        {{L"--engine", L"chromium"}, L"", true},
        {{L"--engine=system"}, L"", false},
        {{L"--engine", L"system"}, L"Chromium", true},
        {{L"--engine", L"chromium"}, L"mshtml", false},
        {{L"--engine", L"system"}, L"either", true},
    };
    for (const auto& [option, variable, usesPageControl] : kCases) {
        SCOPED_TRACE(Narrow((option.empty() ? L"" : option.back()) + L" " + variable));
        std::vector<std::wstring> arguments = {L"build", L"app", L"-o", L"app.exe"};
        arguments.insert(arguments.end(), option.begin(), option.end());
        Run(arguments);
        Program program;
        program.UseExecutable(folder_ / L"app.exe");
        program.SetVariable(L"TARVIK_ENGINE", variable);
        program.Start();
        if (usesPageControl) {
            EXPECT_EQ(program.Wait(), 9u);
            continue;
        }
        EXPECT_TRUE(WaitFor([&] { return program.Windows().size() == 1; }));
        EXPECT_FALSE(WaitFor([&] { return !program.IsRunning(); }, 3000));
        program.Kill();
    }
    EXPECT_THAT(Run({L"build", L"app", L"-o", L"app.exe", L"--engine", L"edge"}, 2),
                HasSubstr("'edge' is none of: system, chromium, either"));
}

TEST_F(PackedProgram, EnablesAslrAndDepLikeAllPrograms) {
    constexpr WORD kProtection = IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA |
                                 IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
    const fs::path folder = Host().parent_path();
    for (const fs::path& program :
         {Host(), folder / L"tarvik-pack.exe", folder / L"tarvik-log.exe", fs::path(program_)}) {
        SCOPED_TRACE(program.filename().string());
        std::string image = ReadFileBytes(program.wstring());
        const IMAGE_NT_HEADERS64& header = HeaderOf(image);
        EXPECT_EQ(header.OptionalHeader.DllCharacteristics & kProtection, kProtection);
        EXPECT_FALSE(header.FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED);
        EXPECT_GT(header.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC].Size, 0u);
    }
}

}  // namespace
}  // namespace tarvik
