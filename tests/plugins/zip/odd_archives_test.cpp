#include <filesystem>

#include "tarvik/text.h"
#include "tests/plugins/zip/zip_fixture.h"

// Unusual archives of other programs.
namespace tarvik {
namespace {

using Tree = std::vector<std::pair<std::u8string, std::string>>;

TEST_F(Unzip, ExtractsUnusualArchives) {
    const std::string content(50, 'c');
    const struct {
        const char* what;
        std::vector<ArchiveMember> members;
        Tree expected;
    } archives[] = {
        {"nothing", {}, {}},
        {"folders in names",
         {{"deep/er/file", "1"}, {"a//b", "2"}, {"./dot/c", "3"}},
         {{u8"a/", ""},
          {u8"a/b", "2"},
          {u8"deep/", ""},
          {u8"deep/er/", ""},
          {u8"deep/er/file", "1"},
          {u8"dot/", ""},
          {u8"dot/c", "3"}}},
        {"an invalid time", {{.name = "a", .time = 0xFFFF, .date = 0}}, {{u8"a", ""}}},
        {"a folder twice", {{"d/", ""}, {"d/a", "1"}, {"d/", ""}}, {{u8"d/", ""}, {u8"d/a", "1"}}},
        {"a folder with and without a slash",
         {{"d/", ""}, {"d/e", ""}, {"d/e/", ""}, {"d/e/a", "1"}},
         {{u8"d/", ""}, {u8"d/e/", ""}, {u8"d/e/a", "1"}}},
        {"folders without slashes",
         {{"d", ""}, {"d/e/a", "1"}, {"d/e", ""}, {"d/f", ""}},
         {{u8"d/", ""}, {u8"d/e/", ""}, {u8"d/e/a", "1"}, {u8"d/f", ""}}},
        {"a folder with content", {{"d/", "content"}}, {{u8"d/", ""}}},
        {"sizes behind the content",
         {{.name = "a", .content = content, .flags = kSizesBehind}, {"b", "2"}},
         {{u8"a", content}, {u8"b", "2"}}},
        {"64-bit fields", {{.name = "a", .content = content, .wide = true}}, {{u8"a", content}}},
        {"two names in one place",
         {{.name = "a", .content = "1", .method = 0, .localName = "../evil"},
          {.name = "b", .content = "1", .method = 0, .packedSize64 = 1, .headerOffset64 = 0}},
         {{u8"a", "1"}, {u8"b", "1"}}},
        {"a symbolic link of Unix",
         {{.name = "link", .content = "../evil", .attributes = 0xA1FF0000}},
         {{u8"link", "../evil"}}},
        {"bytes that are no UTF-8",
         {{.name = "a\xFF", .content = "1", .flags = kUtf8Name}},
         {{u8"a\uFFFD", "1"}}},
    };
    for (const auto& archive : archives) {
        SCOPED_TRACE(archive.what);
        EXPECT_EQ(RunOn(WriteArchive(archive.members)).text, kSuccess);
        EXPECT_EQ(ReadTree(Dest()), archive.expected);
        std::filesystem::remove_all(Dest());
    }
}

TEST_F(Unzip, ReadsUnmarkedNamesInTheCodePageOfTheSystem) {
    const std::string name = "caf\x82";  // in code page 437
    EXPECT_EQ(RunOn(WriteArchive({{name, "1"}})).text, kSuccess);
    EXPECT_EQ(ReadFileBytes(Dest() + L"\\" + Widen(name, CP_ACP)), "1");
    EXPECT_EQ(RunOn(WriteArchive({{"new\\file", "1"}})).text,
              UnzipFailText(HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND)))
        << "backslashes do not separate folders";
}

// With one status, in place of the system's errors, which differ from case to case.
TEST_F(Unzip, FailsIfAFileAndAFolderHaveOneName) {
    const std::string taken = UnzipFailText(HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
    const std::vector<ArchiveMember> archives[] = {
        {{"d", "1"}, {"d/", ""}}, {{"d", "1"}, {"d/a", "2"}}, {{"d", "1"}, {"d/e/a", "2"}},
        {{"d/", ""}, {"d", "1"}}, {{"d/a", "1"}, {"d", "2"}}, {{"d/e/a", "1"}, {"d/e", "2"}},
    };
    for (const auto& members : archives) {
        SCOPED_TRACE(members[0].name + ", " + members[1].name);
        for (const bool overWrite : {false, true}) {
            const OptionObject options = OptionsFor(WriteArchive(members));
            EXPECT_EQ(Run(options.Set(L"overWrite", overWrite)).text, taken);
            EXPECT_FALSE(FileExists(Dest()));
        }
        EXPECT_EQ(RunOn(WriteArchive(members), SkippingAt("BSTR " + members[1].name)).text, kSuccess);
        std::filesystem::remove_all(Dest());
    }
    folder_.Write(L"out", "mine");
    EXPECT_EQ(RunOn(WriteArchive({{"a", "1"}})).text, taken);
    EXPECT_EQ(ReadFileBytes(Dest()), "mine");
}

}  // namespace
}  // namespace tarvik
