// Pages that check themselves, in pages/: each logs what it has checked and ends the program.

#include <algorithm>
#include <filesystem>

#include "tests/page/program.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

void ExpectNoFailure(const Program& program) {
    for (const std::string& line : program.Lines())
        EXPECT_FALSE(line.starts_with("FAILED")) << line;
}

// Lets a page run to its end.
void RunPage(Program& program, const std::string& name, const std::wstring& fragment = {}) {
    program.Start(L"-f \"" + PathOfPage(Widen(name)) + fragment + L"\"");
    EXPECT_EQ(program.Wait(), 0u) << testing::PrintToString(program.Lines());
    ExpectNoFailure(program);
    EXPECT_GT(std::ranges::count_if(program.Lines(), [](const auto& line) { return line.starts_with("ok"); }),
              0);
}

class Page : public testing::TestWithParam<const char*> {};

TEST_P(Page, Passes) {
    Program program;
    RunPage(program, GetParam());
}

INSTANTIATE_TEST_SUITE_P(All, Page,
                         testing::Values("closing", "errors", "gone", "navigation", "plugins", "start",
                                         "windows"),
                         [](const auto& info) { return info.param; });

// A page beside archive.zip, which holds ten files.
class UnzipPage : public testing::Test {
  protected:
    static constexpr int kFiles = 10;

    UnzipPage() {
        std::vector<ArchiveMember> members;
        for (int i = 0; i < kFiles; ++i)
            members.push_back(
                {"folder/" + std::to_string(i) + ".txt", std::string(50'000, static_cast<char>('a' + i))});
        program_.Folder().Write(L"work\\archive.zip", WriteArchive(members));
    }

    std::ptrdiff_t FilesIn(const std::wstring& folder) const {
        const fs::path path = fs::path(program_.Work()) / folder / "folder";
        return fs::exists(path) ? std::distance(fs::directory_iterator(path), {}) : 0;
    }

    // Runs that are under way when their page goes come to their end all the same.
    void LeaveDuringRuns(const std::wstring& fragment) {
        program_.Start(L"-f \"" + PathOfPage(L"unzip_away") + fragment + L"\"");
        EXPECT_TRUE(program_.WaitForLine("ok: the next page has runs of its own"));
        int begun = 0;
        for (int run = 0; run < 20; ++run) {
            const std::wstring folder = L"away" + std::to_wstring(run);
            if (!fs::exists(fs::path(program_.Work()) / folder)) continue;
            ++begun;
            EXPECT_TRUE(WaitFor([&] { return FilesIn(folder) == kFiles; })) << run << ": " << FilesIn(folder);
        }
        EXPECT_GE(begun, 8);
        EXPECT_TRUE(WaitFor([&] { return program_.Windows().size() == 1; }));
        EXPECT_EQ(program_.Quit(0), 0u);
        ExpectNoFailure(program_);
    }

    Program program_;
};

TEST_F(UnzipPage, TellsItsProgressAndItsEnd) {
    RunPage(program_, "unzip");
    EXPECT_EQ(FilesIn(L"one"), kFiles - 1);
}

TEST_F(UnzipPage, MayNavigateDuringRuns) {
    LeaveDuringRuns(L"");
}

TEST_F(UnzipPage, MayCloseDuringRuns) {
    LeaveDuringRuns(L"#close");
}

TEST(FilePage, CopiesListsAndDeletes) {
    Program program;
    program.Folder().Write(L"work\\tree\\a.txt", "12345");
    program.Folder().Write(L"work\\tree\\inner\\b.txt", "1");
    RunPage(program, "file", L"#" + program.Work());
    EXPECT_EQ(ReadFileBytes(program.Work() + L"\\copied\\a.txt"), "12345");
    EXPECT_FALSE(fs::exists(fs::path(program.Work()) / "tree"));
}

}  // namespace
}  // namespace tarvik
