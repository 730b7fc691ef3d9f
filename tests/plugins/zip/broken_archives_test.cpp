#include "tests/plugins/zip/unzip_fixture.h"
#include "tests/support/status_text.h"

// Archives that are damaged, tell lies, or use what is not supported.
namespace tarvik {
namespace {

std::string Damaged(std::string archive, size_t at) {
    archive[at] ^= 0x55;
    return archive;
}

TEST_F(Unzip, RefusesBrokenArchives) {
    const std::string content(3000, 'c');
    const std::string good = WriteArchive({{"a", content}});
    ArchiveLayout tooMany;
    tooMany.count = 0xFFFF;
    const std::pair<const char*, std::string> cases[] = {
        {"no archive", std::string(100'000, 'M')},
        {"one byte", "P"},
        {"cut at its end", good.substr(0, good.size() - 1)},
        {"cut at its start", good.substr(1)},
        {"damaged content", Damaged(good, 40)},
        {"damaged directory", Damaged(good, good.size() - 22 - 46 - 1)},
        {"wrong sum", WriteArchive({{.name = "a", .content = content, .sum = 1}})},
        {"wrong sum of a stored one",
         WriteArchive({{.name = "a", .content = content, .method = 0, .sum = 1}})},
        {"size too small", WriteArchive({{.name = "a", .content = content, .size = 5}})},
        {"size too large", WriteArchive({{.name = "a", .content = content, .size = 5000}})},
        {"encrypted", WriteArchive({{.name = "a", .content = content, .flags = kEncrypted}})},
        {"unknown method", WriteArchive({{.name = "a", .content = content, .method = 12}})},
        {"content of a folder", WriteArchive({{.name = "a", .content = content, .attributes = 0x10}})},
        {"more members than there are", WriteArchive({{"a", content}}, tooMany)},
        {"packed size beyond 64 bits",
         WriteArchive(
             {{.name = "a", .content = content, .method = 0, .packedSize64 = ~std::uint64_t{0} - 8}})},
        {"packed size of nothing", WriteArchive({{.name = "a", .content = content, .packedSize64 = 0}})},
        {"header beyond the archive",
         WriteArchive({{.name = "a", .content = content, .headerOffset64 = ~std::uint64_t{0} - 8}})},
    };
    for (const auto& [what, archive] : cases) {
        SCOPED_TRACE(what);
        EXPECT_EQ(RunOn(archive).text, FailText(E_FAIL));
        EXPECT_FALSE(FileExists(Dest()));
    }
}

TEST_F(Unzip, AnswersMissingOptions) {
    OptionObject noDest = OptionsFor(WriteArchive({}));
    noDest.Set(L"dest", 5);
    EXPECT_EQ(Run(noDest).text, FailText(E_INVALIDARG));
    noDest.Set(L"dest", L"");
    EXPECT_EQ(Run(noDest).text, FailText(E_INVALIDARG)) << "else it would be the root of the drive";

    OptionObject sourceOfAnotherKind;
    sourceOfAnotherKind.Set(L"src", nullptr).Set(L"dest", Dest().c_str());
    EXPECT_EQ(Run(sourceOfAnotherKind).text, FailText(HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND)));

    OptionObject emptyFile = OptionsFor("");
    EXPECT_EQ(Run(emptyFile).text, FailText(HRESULT_FROM_WIN32(ERROR_FILE_INVALID)));

    OptionObject noSuchIndex = OptionsFor("program" + WriteArchive({{"a", "1"}}));
    noSuchIndex.Set(L"index", 1);
    EXPECT_EQ(Run(noSuchIndex).text, FailText(E_FAIL));
    noSuchIndex.Set(L"index", -1);
    EXPECT_EQ(Run(noSuchIndex).text, FailText(E_FAIL));
    noSuchIndex.Set(L"index", L"1");
    EXPECT_EQ(Run(noSuchIndex).text, kSuccess);
}

}  // namespace
}  // namespace tarvik
