// Errors, which are reported before anything is written.

#include <fstream>

#include "tarvik/text.h"
#include "tests/pack/pack_fixture.h"
#include "tests/plugins/zip/archive_writer.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

struct Refusal {
    std::vector<std::wstring> arguments;
    DWORD code;
    std::string message;
};

class Refused : public PackTest {
  protected:
    void ExpectRefusals(std::initializer_list<Refusal> refusals) const {
        const auto before = ReadTree(folder_.Path());
        for (const Refusal& refusal : refusals) {
            SCOPED_TRACE(refusal.message);
            EXPECT_THAT(Run(refusal.arguments, refusal.code), HasSubstr(refusal.message));
            EXPECT_TRUE(ReadTree(folder_.Path()) == before) << "something was written";
        }
    }
    // A build that would succeed without these options.
    static Refusal Options(std::vector<std::wstring> options, DWORD code, std::string message) {
        options.insert(options.begin(), {L"build", L"app"});
        if (std::ranges::find(options, L"-o") == options.end())
            options.insert(options.end(), {L"-o", L"out.exe"});
        return {std::move(options), code, std::move(message)};
    }
    void WriteApplication() const { folder_.Write(L"app\\resource\\index.html", "<!doctype html>"); }
};

TEST_F(Refused, WrongCommandLines) {
    WriteApplication();
    const std::wstring longText(1001, L'x');
    ExpectRefusals({
        {{}, 2, "a command is required\nusage: tarvik-pack [OPTIONS] COMMAND\n"},
        {{L"bild", L"app"}, 2, "unknown command bild; did you mean build?"},
        {{L"new"},
         2,
         "FOLDER is required\nusage: tarvik-pack new FOLDER\nTry 'tarvik-pack new --help' for more.\n"},
        {{L"new", L""}, 2, "FOLDER: the path is empty"},
        {{L"list", L"a.exe", L"b.exe"}, 2, "unexpected argument b.exe\nusage: tarvik-pack list APP\n"},
        {{L"list", L"a.exe", L"--icon", L"b"}, 2, "unknown option --icon"},
        {{L"build", L"app"},
         2,
         "--output is required\nusage: tarvik-pack build FOLDER --output APP [OPTIONS]\n"},
        {{L"build", L"app", L"--icno=a.ico"}, 2, "unknown option --icno; did you mean --icon?"},
        {{L"build", L"app", L"--out=app.exe"}, 2, "unknown option --out; did you mean --output?"},
        Options({L"-o", L"out.exe", L"--icon"}, 2, "--icon takes exactly one value"),
        Options({L"--name=a", L"--name", L"b"}, 2, "--name takes exactly one value"),
        Options({L"--icon="}, 2, "--icon: the path is empty"),
        Options({L"--name", longText}, 2, "--name: the text is longer than"),
        Options({L"--version="}, 2, "'' is not one to four numbers"),
        Options({L"--version", L"1.65536"}, 2, "'1.65536' is not"),
        Options({L"--version", L"1.2.3.4.5"}, 2, "'1.2.3.4.5' is not"),
        Options({L"--version", L"1.-2"}, 2, "'1.-2' is not"),
    });
}

TEST_F(Refused, FoldersAndOutputs) {
    WriteApplication();
    folder_.Write(L"other\\page.html", "");
    fs::copy_file(Host(), folder_ / L"host.exe");
    const auto build = [](const wchar_t* folder, const wchar_t* output) {
        return std::vector<std::wstring>{L"build", folder, L"-o", output};
    };
    const std::wstring outside = fs::path(folder_.Path()).filename().wstring();
    ExpectRefusals({
        {{L"new", L"other"}, 1, "is not empty"},
        {{L"new", L"host.exe"}, 1, "is a file"},
        {build(L"missing", L"out.exe"), 1, "missing\" cannot be read"},
        {build(L"host.exe", L"out.exe"), 1, "host.exe\" is not a folder"},
        {build(L"other", L"out.exe"), 1, "has no resource\\index.html"},
        {build(L"app", L"missing\\out.exe"), 1, "missing\\out.exe"},
        {build(L"app", L"other"), 1, "is a folder"},
        {build(L"app", L"app\\out.exe"), 1, "is inside the folder to pack"},
        {build(L"app", L"APP\\resource\\out.exe"), 1, "is inside the folder to pack"},
        Options({L"--host", L"host.exe", L"-o", (L"..\\" + outside + L"\\HOST.exe")}, 1,
                "is the host itself"),
    });
}

TEST_F(Refused, FilesThatCouldNotBeUnpacked) {
    WriteApplication();
    const auto expectRefusal = [&](const char* message) {
        EXPECT_THAT(Run({L"build", L"app", L"-o", L"out.exe"}, 1), HasSubstr(message));
        EXPECT_FALSE(FileExists(folder_ / L"out.exe"));
    };
    const std::wstring device = L"\\\\?\\" + (folder_ / L"app\\aux.txt");
    std::ofstream(fs::path(device)) << "x";
    expectRefusal("aux.txt\" has a name that Windows reserves");
    EXPECT_TRUE(DeleteFileW(device.c_str()));
    fs::resize_file(folder_.Write(L"app\\film", ""), 0xFFFF'FFFF);
    expectRefusal("film\" is 4 GiB or larger");
}

TEST_F(Refused, HostsAndIcons) {
    WriteApplication();
    const std::string host = ReadFileBytes(Host().wstring());
    std::string isSigned = host;
    auto& directory = HeaderOf(isSigned).OptionalHeader.DataDirectory;
    directory[IMAGE_DIRECTORY_ENTRY_SECURITY].Size = 1;
    folder_.Write(L"signed.exe", isSigned);
    folder_.Write(L"packed.exe", host + WriteArchive({{"page", "x"}}));
    folder_.Write(L"text.exe", "no program");
    folder_.Write(L"cut.exe", host.substr(0, 300));
    folder_.Write(L"empty", "");
    const std::string icon = IconFileOf(Picture());
    const std::pair<const wchar_t*, std::string> noIcons[] = {
        {L"cut.ico", icon.substr(0, icon.size() - 1)},
        {L"none.ico", std::string("\0\0\1\0\0\0", 6)},
        {L"cursor.ico", std::string(icon).replace(2, 1, "\2")},
        {L"many.ico", std::string(icon).replace(4, 2, "\xFF\xFF")},
        {L"inside.ico", std::string(icon).replace(18, 1, "\1")},
        {L"short.ico", IconFileOf(Picture().substr(0, 1000))},
        {L"nonsense.ico", IconFileOf(std::string(500, 'x'))},
    };
    for (const auto& [name, bytes] : noIcons) {
        folder_.Write(name, bytes);
        ExpectRefusals({Options({L"--icon", name}, 1, Narrow(name) + "\" is not an icon")});
    }
    const auto of = [](const wchar_t* option, const wchar_t* file, const char* message) {
        return Options({option, file}, 1, message);
    };
    ExpectRefusals({
        of(L"--host", L"signed.exe", "signed.exe\" is signed"),
        of(L"--host", L"packed.exe", "packed.exe\" already has an archive"),
        of(L"--host", L"text.exe", "text.exe\" is not a program"),
        of(L"--host", L"cut.exe", "cut.exe\" is not a program"),
        of(L"--host", L"empty", "empty\" cannot be read"),
        of(L"--icon", L"empty", "empty\" cannot be read"),
    });
}

TEST_F(Refused, ProgramsThatCarryNothingOrADamagedArchive) {
    ArchiveMember damaged = {"page", "x"};
    damaged.sum = 1;
    folder_.Write(L"damaged.exe", "host" + WriteArchive({damaged}));
    folder_.Write(L"climbing.exe", "host" + WriteArchive({{"../page", "x"}}));
    ExpectRefusals({
        {{L"list", Host().wstring()}, 1, "tarvik.exe\" has no archive attached"},
        {{L"list", L"/missing.exe"}, 1, "missing.exe\" cannot be read"},
        {{L"extract", Host().wstring(), L"out"}, 1, "has no archive attached"},
        {{L"extract", L"damaged.exe", L"out"}, 1, "damaged.exe\" is damaged"},
        {{L"extract", L"climbing.exe", L"out"}, 1, "climbing.exe\" is damaged"},
        {{L"extract", L"damaged.exe", L"."}, 1, "is not empty"},
    });
}

}  // namespace
}  // namespace tarvik
