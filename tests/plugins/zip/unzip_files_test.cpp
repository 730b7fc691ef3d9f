#include <windows.h>

#include <filesystem>

#include "base/owners.h"
#include "base/text.h"
#include "tests/plugins/zip/unzip_fixture.h"

// What a run leaves on the disk.
namespace tarvik {
namespace {

const std::string kAlreadyThere = FailText(HRESULT_FROM_WIN32(ERROR_FILE_EXISTS));

TEST_F(Unzip, ReplacesFilesOnlyWhenToldTo) {
    const std::string archive = WriteArchive({{"a", "new"}, {"b", "b"}});
    folder_.Write(L"out\\a", "the old one, which is longer");
    EXPECT_EQ(RunOn(archive).text, kAlreadyThere);
    OptionObject wrongKind = OptionsFor(archive);
    wrongKind.Set(L"overWrite", 1);
    EXPECT_EQ(Run(wrongKind).text, kAlreadyThere);
    EXPECT_FALSE(FileExists(Dest() + L"\\b"));

    OptionObject options = OptionsFor(archive);
    options.Set(L"overWrite", true);
    EXPECT_EQ(Run(options).text, kSuccess);
    EXPECT_EQ(ReadFileBytes(Dest() + L"\\a"), "new");
}

TEST_F(Unzip, RemovesAFolderThatItMadeAndNoOther) {
    const std::string broken = WriteArchive({{"good", "1"}, {.name = "bad", .content = "2", .sum = 0}});
    EXPECT_EQ(RunOn(broken).text, FailText(E_FAIL));
    EXPECT_FALSE(FileExists(Dest()));

    CreateDirectoryW(Dest().c_str(), nullptr);
    EXPECT_EQ(RunOn(broken).text, FailText(E_FAIL));
    EXPECT_EQ(ReadFileBytes(Dest() + L"\\good"), "1");
    EXPECT_EQ(ReadFileBytes(Dest() + L"\\bad"), "2");

    OptionObject noSource;
    noSource.Set(L"src", (folder_ / L"missing.zip").c_str()).Set(L"dest", (folder_ / L"other").c_str());
    EXPECT_EQ(Run(noSource).text, FailText(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)));
    EXPECT_FALSE(FileExists(folder_ / L"other"));
}

// However the folder is written, it is made for a run and goes with one that fails.
TEST_F(Unzip, TakesItsFolderInAnyForm) {
    namespace fs = std::filesystem;
    const std::string good = WriteArchive({{"a", "1"}});
    const std::string broken = WriteArchive({{"a", "1"}, {.name = "bad", .content = "2", .sum = 0}});
    const fs::path before = fs::current_path();
    fs::current_path(folder_.Path());
    for (const std::wstring& form : {std::wstring(L"out"), std::wstring(L".\\out\\"), Dest() + L"\\",
                                     fs::path(Dest()).generic_wstring()}) {
        SCOPED_TRACE(Narrow(form));
        const auto run = [&](const std::string& archive) {
            OptionObject options = OptionsFor(archive);
            return Run(options.Set(L"dest", form.c_str())).text;
        };
        EXPECT_EQ(run(broken), FailText(E_FAIL));
        EXPECT_FALSE(FileExists(Dest()));
        EXPECT_EQ(run(good), kSuccess);
        EXPECT_EQ(ReadFileBytes(Dest() + L"\\a"), "1");
        fs::remove_all(Dest());
    }
    fs::current_path(before);
}

TEST_F(Unzip, MakesFoldersAsNamesAskForThem) {
    const std::string archive =
        WriteArchive({{"deep/er/file", "1"}, {"only/", ""}, {"a//b", "2"}, {"./dot/c", "3"}});
    EXPECT_EQ(RunOn(archive).text, kSuccess);
    const std::vector<std::pair<std::u8string, std::string>> expected = {
        {u8"a/", ""},   {u8"a/b", "2"},   {u8"deep/", ""}, {u8"deep/er/", ""}, {u8"deep/er/file", "1"},
        {u8"dot/", ""}, {u8"dot/c", "3"}, {u8"only/", ""}};
    EXPECT_EQ(ReadTree(Dest()), expected);
    // Backslashes make no folders.
    EXPECT_EQ(RunOn(WriteArchive({{"new\\file", "1"}})).text,
              FailText(HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND)));
    EXPECT_EQ(RunOn(WriteArchive({})).text, kSuccess);
}

TEST_F(Unzip, ReadsNamesInTheirOwnCharacters) {
    const std::string long1(120, 'n');
    EXPECT_EQ(RunOn(WriteArchive({{.name = "\xE6\xBC\xA2", .content = "1", .flags = kUtf8Name},
                                  {"caf\xE9", "2"},
                                  {long1, "3"}}))
                  .text,
              kSuccess);
    EXPECT_EQ(ReadFileBytes(Dest() + L"\\\u6F22"), "1");
    EXPECT_TRUE(GetACP() != 1252 || FileExists(Dest() + L"\\caf\u00E9"));
    EXPECT_EQ(ReadFileBytes(Dest() + L"\\" + std::wstring(long1.begin(), long1.end())), "3");
}

SYSTEMTIME LocalTime(const std::wstring& path, bool ofCreation) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data);
    SYSTEMTIME universal = {}, local = {};
    FileTimeToSystemTime(ofCreation ? &data.ftCreationTime : &data.ftLastWriteTime, &universal);
    SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local);
    return local;
}

TEST_F(Unzip, SetsTheTimesThatTheArchiveTells) {
    constexpr std::uint16_t kDate = (2021 - 1980) << 9 | 7 << 5 | 30;
    constexpr std::uint16_t kTime = 13 << 11 | 45 << 5 | 58 / 2;
    EXPECT_EQ(RunOn(WriteArchive({{.name = "f/", .time = kTime, .date = kDate},
                                  {.name = "a", .content = "1", .time = kTime, .date = kDate},
                                  {.name = "nonsense", .time = 0xFFFF, .date = 0}}))
                  .text,
              kSuccess);
    for (const wchar_t* name : {L"\\f", L"\\a"}) {
        for (const bool ofCreation : {false, true}) {
            const SYSTEMTIME time = LocalTime(Dest() + name, ofCreation);
            EXPECT_EQ(time.wYear * 10000 + time.wMonth * 100 + time.wDay, 20210730);
            EXPECT_EQ(time.wHour * 10000 + time.wMinute * 100 + time.wSecond, 134558);
        }
    }
}

TEST_F(Unzip, EndsAtANameThatLeavesWithNothingWrittenOutside) {
    CreateDirectoryW(Dest().c_str(), nullptr);
    for (const std::string& name :
         {std::string("../evil"), std::string("..\\evil"), std::string("a/../../evil"), std::string("/evil"),
          std::string("C:\\evil"), std::string("good:stream"), std::string("go\0od", 5),
          std::string("NUL")}) {
        SCOPED_TRACE(name);
        OptionObject options = OptionsFor(WriteArchive({{"good", "1"}, {name, "evil"}, {"after", "2"}}));
        auto expected = ReadTree(folder_.Path());
        expected.emplace_back(u8"out/good", "1");
        const Ending ending = Run(options);
        EXPECT_EQ(ending.text, FailText(E_FAIL));
        EXPECT_EQ(ending.progress, (std::vector<std::string>{"BSTR good", "BSTR good, UI4 6, UI4 1, EMPTY"}));
        EXPECT_EQ(ReadTree(folder_.Path()), expected);
        DeleteFileW((Dest() + L"\\good").c_str());
    }
}

}  // namespace
}  // namespace tarvik
