// The self-checking pages in pages/: each logs its checks and quits the program.

#include <filesystem>

#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/plugins/zip/archive_writer.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

class PageTest : public ProgramTest {
  protected:
    void Start(const std::wstring& page, const std::wstring& fragment = {}) {
        program_.Start(L"-f \"" + PathOfPage(page) + fragment + L"\"");
    }
    void ExpectNoFailure() const {
        for (const std::string& line : program_.Lines())
            EXPECT_FALSE(line.starts_with("FAILED")) << line;
    }
};

class APage : public PageTest, public testing::WithParamInterface<const char*> {};

TEST_P(APage, Passes) {
    Start(Widen(GetParam()));
    EXPECT_EQ(program_.Wait(), 0u) << testing::PrintToString(program_.Lines());
    ExpectNoFailure();
    EXPECT_THAT(program_.Lines(), testing::Contains(testing::StartsWith("ok")));
}

INSTANTIATE_TEST_SUITE_P(All, APage,
                         testing::Values("console", "features", "identity", "navigation", "plugins", "start",
                                         "windows"),
                         [](const auto& info) { return info.param; });

// A page beside archive.zip, which contains ten files.
class UnzipPage : public PageTest {
  protected:
    static constexpr int kFiles = 10;

    UnzipPage() {
        std::vector<ArchiveMember> members;
        members.reserve(kFiles);
        for (int i = 0; i < kFiles; ++i)
            members.push_back(
                {"folder/" + std::to_string(i) + ".txt", std::string(50'000, static_cast<char>('a' + i))});
        program_.Folder().Write(L"work\\archive.zip", WriteArchive(members));
    }

    std::ptrdiff_t FilesIn(const std::wstring& folder) const {
        const fs::path path = fs::path(program_.Work()) / folder / "folder";
        return fs::exists(path) ? std::distance(fs::directory_iterator(path), {}) : 0;
    }

    // Operations finish even if their page is left while they run.
    void LeaveDuringOperations(const std::wstring& fragment) {
        Start(L"unzip_away", fragment);
        EXPECT_TRUE(program_.WaitForLine("ok: the next page has operations of its own"));
        int completed = 0;
        for (int operation = 0; operation < 20; ++operation) {
            const std::wstring folder = L"away" + std::to_wstring(operation);
            // An operation that fails removes its folder.
            const auto isFinished = [&] {
                return !fs::exists(fs::path(program_.Work()) / folder) || FilesIn(folder) == kFiles;
            };
            EXPECT_TRUE(WaitFor(isFinished)) << operation << ": " << FilesIn(folder);
            completed += FilesIn(folder) == kFiles;
        }
        EXPECT_GE(completed, 8);
        EXPECT_TRUE(WaitFor([&] { return program_.Windows().size() == 1; }));
        EXPECT_EQ(program_.Quit(0), 0u);
        ExpectNoFailure();
    }
};

TEST_F(UnzipPage, MayNavigateDuringOperations) {
    LeaveDuringOperations(L"");
}

TEST_F(UnzipPage, MayBeClosedDuringOperations) {
    LeaveDuringOperations(L"#close");
}

}  // namespace
}  // namespace tarvik
