// Pages that check themselves, in pages/: each logs what it has checked and ends the program.

#include <filesystem>

#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/support/web_server.h"

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
    // Lets a page run to its end.
    void Run(const std::wstring& page, const std::wstring& fragment = {}) {
        Start(page, fragment);
        EXPECT_EQ(program_.Wait(), 0u) << testing::PrintToString(program_.Lines());
        ExpectNoFailure();
        EXPECT_THAT(program_.Lines(), testing::Contains(testing::StartsWith("ok")));
    }
};

class APage : public PageTest, public testing::WithParamInterface<const char*> {};

TEST_P(APage, Passes) {
    Run(Widen(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, APage,
                         testing::Values("errors", "gone", "navigation", "plugins", "start", "windows"),
                         [](const auto& info) { return info.param; });

// A page beside archive.zip, which holds ten files.
class UnzipPage : public PageTest {
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
        Start(L"unzip_away", fragment);
        EXPECT_TRUE(program_.WaitForLine("ok: the next page has runs of its own"));
        int begun = 0;
        for (int run = 0; run < 20; ++run) {
            const std::wstring folder = L"away" + std::to_wstring(run);
            // One that fails takes its folder away again.
            const auto isSettled = [&] {
                return !fs::exists(fs::path(program_.Work()) / folder) || FilesIn(folder) == kFiles;
            };
            EXPECT_TRUE(WaitFor(isSettled)) << run << ": " << FilesIn(folder);
            begun += FilesIn(folder) == kFiles;
        }
        EXPECT_GE(begun, 8);
        EXPECT_TRUE(WaitFor([&] { return program_.Windows().size() == 1; }));
        EXPECT_EQ(program_.Quit(0), 0u);
        ExpectNoFailure();
    }
};

TEST_F(UnzipPage, MayNavigateDuringRuns) {
    LeaveDuringRuns(L"");
}

TEST_F(UnzipPage, MayCloseDuringRuns) {
    LeaveDuringRuns(L"#close");
}

TEST_F(PageTest, CopiesListsAndDeletesFiles) {
    program_.Folder().Write(L"work\\tree\\a.txt", "12345");
    program_.Folder().Write(L"work\\tree\\inner\\b.txt", "1");
    Run(L"file", L"#" + program_.Work());
    EXPECT_EQ(ReadFileBytes(program_.Work() + L"\\copied\\a.txt"), "12345");
    EXPECT_FALSE(FileExists(program_.Work() + L"\\tree"));
}

class DownloadPage : public PageTest {
  protected:
    static void Serve(const WebExchange& exchange) {
        if (exchange.Path() == "/text") return exchange.Answer("a text");
        if (exchange.Path() == "/whole") return exchange.Answer(std::string(300'000, 'w'));
        exchange.Send("HTTP/1.1 200 OK\r\nContent-Length: 200000\r\n\r\n");
        for (int piece = 0; piece < 200 && exchange.Send(std::string(1'000, 's')); ++piece)
            Sleep(10);
    }

    // A download that is under way when its page goes comes to its end all the same.
    void LeaveDuringIt(const std::wstring& how) {
        const std::wstring path = program_.Folder() / L"slow";
        Start(L"download", L"#" + server_.Url() + L"," + how + L"," + path);
        EXPECT_TRUE(program_.WaitForLine("ok: the next page is there"));
        EXPECT_TRUE(WaitFor([&] { return static_cast<bool>(HoldFile(path)); })) << "closed";
        EXPECT_EQ(ReadFileBytes(path).size(), 200'000u);
        EXPECT_EQ(program_.Quit(0), 0u);
        ExpectNoFailure();
    }

    const WebServer server_{Serve};
};

TEST_F(DownloadPage, TellsItsProgressAndItsEnd) {
    Run(L"download", L"#" + server_.Url());
}

TEST_F(DownloadPage, MayNavigateMeanwhile) {
    LeaveDuringIt(L"leave");
}

TEST_F(DownloadPage, MayCloseMeanwhile) {
    LeaveDuringIt(L"close");
}

}  // namespace
}  // namespace tarvik
