#include <filesystem>

#include "tarvik/text.h"
#include "tests/plugins/zip/zip_fixture.h"

// The files that unzip leaves on disk.
namespace tarvik {
namespace {

const std::string kAlreadyThere = UnzipFailText(HRESULT_FROM_WIN32(ERROR_FILE_EXISTS));

TEST_F(Unzip, ReplacesFilesOnlyWithOverWrite) {
    const std::string archive = WriteArchive({{"a", "new"}, {"b", "b"}});
    folder_.Write(L"out\\a", "the old one, which is longer");
    EXPECT_EQ(RunOn(archive).text, kAlreadyThere);
    EXPECT_EQ(Run(OptionsFor(archive).Set(L"overWrite", 1)).text, kAlreadyThere);
    EXPECT_FALSE(FileExists(Dest() + L"\\b"));
    EXPECT_EQ(Run(OptionsFor(archive).Set(L"overWrite", true)).text, kSuccess);
    EXPECT_EQ(ReadFileBytes(Dest() + L"\\a"), "new");
}

// For every form of the folder's path.
TEST_F(Unzip, DeletesItsFolderAfterAFailureUnlessItExisted) {
    namespace fs = std::filesystem;
    const std::string broken = WriteArchive({{"good", "1"}, {.name = "bad", .content = "2", .sum = 0}});
    const fs::path before = fs::current_path();
    fs::current_path(folder_.Path());
    for (const std::wstring& form : {Dest(), std::wstring(L".\\out\\"), fs::path(Dest()).generic_wstring()}) {
        SCOPED_TRACE(Narrow(form));
        const auto run = [&] { return Run(OptionsFor(broken).Set(L"dest", form.c_str())).text; };
        EXPECT_EQ(run(), UnzipFailText(E_FAIL));
        EXPECT_FALSE(FileExists(Dest()));
        CreateDirectoryW(Dest().c_str(), nullptr);
        EXPECT_EQ(run(), UnzipFailText(E_FAIL));
        EXPECT_EQ(ReadFileBytes(Dest() + L"\\good"), "1");
        EXPECT_EQ(ReadFileBytes(Dest() + L"\\bad"), "2");
        fs::remove_all(Dest());
    }
    fs::current_path(before);
    const std::wstring missing = folder_ / L"missing.zip";
    EXPECT_EQ(Run(OptionsFor("").Set(L"src", missing.c_str())).text,
              UnzipFailText(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)));
    EXPECT_FALSE(FileExists(Dest()));
}

TEST_F(Unzip, CreatesTheFoldersInNames) {
    const std::string archive =
        WriteArchive({{"deep/er/file", "1"}, {"only/", ""}, {"a//b", "2"}, {"./dot/c", "3"}});
    EXPECT_EQ(RunOn(archive).text, kSuccess);
    const std::vector<std::pair<std::u8string, std::string>> expected = {
        {u8"a/", ""},   {u8"a/b", "2"},   {u8"deep/", ""}, {u8"deep/er/", ""}, {u8"deep/er/file", "1"},
        {u8"dot/", ""}, {u8"dot/c", "3"}, {u8"only/", ""}};
    EXPECT_EQ(ReadTree(Dest()), expected);
    // Backslashes do not separate folders.
    EXPECT_EQ(RunOn(WriteArchive({{"new\\file", "1"}})).text,
              UnzipFailText(HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND)));
    EXPECT_EQ(RunOn(WriteArchive({})).text, kSuccess);
    EXPECT_EQ(RunOn(WriteArchive({{.name = "no such time", .time = 0xFFFF, .date = 0}})).text, kSuccess);
}

std::string Damaged(std::string archive, size_t at) {
    archive[at] ^= 0x55;
    return archive;
}

TEST_F(Unzip, RejectsBrokenArchives) {
    constexpr std::uint64_t kHuge = ~std::uint64_t{0} - 8;
    const std::string c(3000, 'c');
    const std::string good = WriteArchive({{"a", c}});
    const std::pair<const char*, std::string> archives[] = {
        {"no archive", std::string(100'000, 'M')},
        {"one byte", "P"},
        {"cut at its end", good.substr(0, good.size() - 1)},
        {"cut at its start", good.substr(1)},
        {"damaged content", Damaged(good, 40)},
        {"damaged directory", Damaged(good, good.size() - 22 - 46 - 1)},
        {"member count too large", WriteArchive({{"a", c}}, {.count = 0xFFFF})},
    };
    for (const auto& [what, archive] : archives) {
        EXPECT_EQ(RunOn(archive).text, UnzipFailText(E_FAIL)) << what;
        EXPECT_FALSE(FileExists(Dest())) << what;
    }
    const std::pair<const char*, ArchiveMember> members[] = {
        {"wrong sum", {.name = "a", .content = c, .sum = 1}},
        {"wrong sum of a stored one", {.name = "a", .content = c, .method = 0, .sum = 1}},
        {"size too small", {.name = "a", .content = c, .size = 5}},
        {"size too large", {.name = "a", .content = c, .size = 5000}},
        {"encrypted", {.name = "a", .content = c, .flags = kEncrypted}},
        {"unknown method", {.name = "a", .content = c, .method = 12}},
        {"content of a folder", {.name = "a", .content = c, .attributes = 0x10}},
        {"packed size beyond 64 bits", {.name = "a", .content = c, .method = 0, .packedSize64 = kHuge}},
        {"packed size of 0", {.name = "a", .content = c, .packedSize64 = 0}},
        {"header beyond the archive",
         {.name = "a", .content = c, .method = 0, .packedSize64 = 3000, .headerOffset64 = kHuge}},
    };
    for (const auto& [what, member] : members) {
        EXPECT_EQ(RunOn(WriteArchive({member})).text, UnzipFailText(E_FAIL)) << what;
        EXPECT_FALSE(FileExists(Dest())) << what;
    }
}

std::vector<ArchiveMember> RejectedMembers() {
    constexpr std::uint64_t kHuge = ~std::uint64_t{0} - 8;
    using namespace std::string_literals;
    std::vector<ArchiveMember> members = {
        {.name = "evil/size", .content = "evil", .packedSize64 = kHuge},
        {.name = "evil/place", .content = "evil", .method = 0, .packedSize64 = 4, .headerOffset64 = kHuge},
    };
    for (const std::string& name :
         {"../evil"s, "..\\evil"s, "/evil"s, "C:\\evil"s, "good:stream"s, "evil/../../a"s, "nul"s, "go\0od"s})
        members.push_back({name, "evil"});
    return members;
}

TEST_F(Unzip, FailsAtARejectedMemberUnlessProgressSkipsIt) {
    CreateDirectoryW(Dest().c_str(), nullptr);
    for (const ArchiveMember& member : RejectedMembers()) {
        SCOPED_TRACE(member.name);
        const std::string call = "BSTR " + member.name;
        const OptionObject options = OptionsFor(WriteArchive({{"good", "1"}, member, {"other", "2"}}));
        auto expected = ReadTree(folder_.Path());
        expected.emplace_back(u8"out/good", "1");
        const Completion completion = Run(options);
        EXPECT_EQ(completion.text, UnzipFailText(E_FAIL));
        EXPECT_THAT(completion.progress, ElementsAre("BSTR good", HasSubstr("BSTR good, "), call));
        EXPECT_EQ(ReadTree(folder_.Path()), expected);

        expected.emplace_back(u8"out/other", "2");
        const auto skip = [&](const Recorder::Record& record) {
            return Recorder::Text(record) == call ? Variant::I4(0) : Variant();
        };
        EXPECT_EQ(Run(options.Set(L"overWrite", true), skip).text, kSuccess);
        EXPECT_EQ(ReadTree(folder_.Path()), expected);
        DeleteFileW((Dest() + L"\\good").c_str());
        DeleteFileW((Dest() + L"\\other").c_str());
    }
}

}  // namespace
}  // namespace tarvik
