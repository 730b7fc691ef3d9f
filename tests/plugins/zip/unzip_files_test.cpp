#include <filesystem>

#include "tarvik/text.h"
#include "tests/plugins/zip/zip_fixture.h"

// The files that unzip leaves on disk.
namespace tarvik {
namespace {

namespace fs = std::filesystem;

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

TEST_F(Unzip, RejectsBrokenArchives) {
    constexpr std::uint64_t kHuge = ~std::uint64_t{0} - 8;
    const std::string c(3000, 'c');
    const auto of = [](ArchiveMember member) { return WriteArchive({std::move(member)}); };
    const std::string good = WriteArchive({{"a", c}});
    const auto damagedAt = [&](size_t at) { return std::string(good).replace(at, 1, "\x55"); };
    const std::pair<const char*, std::string> archives[] = {
        {"no archive", std::string(100'000, 'M')},
        {"cut at its end", good.substr(0, good.size() - 1)},
        {"cut at its start", good.substr(1)},
        {"damaged content", damagedAt(40)},
        {"damaged directory", damagedAt(good.size() - 22 - 46 - 1)},
        {"member count too large", WriteArchive({{"a", c}}, {.count = 0xFFFF})},
        {"wrong sum", of({.name = "a", .content = c, .sum = 1})},
        {"wrong sum of a stored one", of({.name = "a", .content = c, .method = 0, .sum = 1})},
        {"size too small", of({.name = "a", .content = c, .size = 5})},
        {"size too large", of({.name = "a", .content = c, .size = 5000})},
        {"encrypted", of({.name = "a", .content = c, .flags = kEncrypted})},
        {"unknown method", of({.name = "a", .content = c, .method = 12})},
        {"content of a folder", of({.name = "a", .content = c, .attributes = 0x10})},
        {"packed size beyond 64 bits", of({.name = "a", .content = c, .method = 0, .packedSize64 = kHuge})},
        {"packed size of 0", of({.name = "a", .content = c, .packedSize64 = 0})},
        {"header beyond the archive",
         of({.name = "a", .content = c, .method = 0, .packedSize64 = 3000, .headerOffset64 = kHuge})},
    };
    for (const auto& [what, archive] : archives) {
        EXPECT_EQ(RunOn(archive).text, UnzipFailText(E_FAIL)) << what;
        EXPECT_FALSE(FileExists(Dest())) << what;
    }
}

// archive/entry_path.h decides which names are rejected.
TEST_F(Unzip, FailsAtARejectedMemberUnlessProgressSkipsIt) {
    constexpr std::uint64_t kHuge = ~std::uint64_t{0} - 8;
    const ArchiveMember rejected[] = {
        {"../evil", "evil"},
        {"good:stream", "evil"},
        {std::string("go\0od", 5), "evil"},
        {.name = "evil/size", .content = "evil", .packedSize64 = kHuge},
        {.name = "evil/place", .content = "evil", .method = 0, .packedSize64 = 4, .headerOffset64 = kHuge},
    };
    for (const ArchiveMember& member : rejected) {
        SCOPED_TRACE(member.name);
        const std::string call = "BSTR " + member.name;
        const OptionObject options = OptionsFor(WriteArchive({{"good", "1"}, member, {"other", "2"}}));
        CreateDirectoryW(Dest().c_str(), nullptr);
        auto expected = ReadTree(folder_.Path());
        expected.emplace_back(u8"out/good", "1");
        const Completion completion = Run(options);
        EXPECT_EQ(completion.text, UnzipFailText(E_FAIL));
        EXPECT_EQ(completion.progress.back(), call);
        EXPECT_EQ(ReadTree(folder_.Path()), expected);

        expected.emplace_back(u8"out/other", "2");
        EXPECT_EQ(Run(options.Set(L"overWrite", true), SkippingAt(call)).text, kSuccess);
        EXPECT_EQ(ReadTree(folder_.Path()), expected);
        fs::remove_all(Dest());
    }
}

}  // namespace
}  // namespace tarvik
