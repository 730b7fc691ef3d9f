// What the guide's first page tells a newcomer to do, done to the letter.

#include <windows.h>
#include <shellapi.h>

#include <filesystem>
#include <memory>
#include <regex>

#include "tests/page/program.h"
#include "tests/support/console_program.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

// A fenced block: its kind, the file that it belongs into, which only some name, and its text.
struct Block {
    std::string kind;
    std::string file;
    std::string text;
};

std::vector<Block> BlocksOf(const std::string& page) {
    static const std::regex block("(^|\n)```(\\w+) ?([^\n]*)\n([^]*?\n)```\n");
    std::vector<Block> blocks;
    for (std::sregex_iterator at(page.begin(), page.end(), block), end; at != end; ++at)
        blocks.push_back({(*at)[2], (*at)[3], (*at)[4]});
    return blocks;
}

std::vector<std::wstring> WordsOf(const std::wstring& line) {
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(CommandLineToArgvW(line.c_str(), &count),
                                                              LocalFree);
    return {words.get(), words.get() + count};
}

class FirstApplication : public ProgramTest {
  protected:
    void Do(const Block& step) {
        if (step.kind == "html") program_.Folder().Write(L"work\\" + Widen(step.file), step.text);
        if (step.kind != "bat") return;
        SCOPED_TRACE(step.text);
        const std::wstring line = Widen(step.text.substr(0, step.text.find('\n')));
        const auto words = WordsOf(line);
        if (words.front() == L"tarvik-pack") {
            const ConsoleProgram program(words.front(), {words.begin() + 1, words.end()}, program_.Work());
            EXPECT_EQ(program.Wait(), 0u) << program.Error();
        } else {
            if (words.front() != L"tarvik") program_.UseExecutable(program_.Work() + L"\\" + words.front());
            RunUntilItsWindowCloses(line.substr(words.front().size()));
        }
    }

  private:
    void RunUntilItsWindowCloses(const std::wstring& arguments) {
        program_.Start(arguments);
        EXPECT_TRUE(program_.WaitForLine("Garden planner has 1 beds"));
        EXPECT_TRUE(Close(program_.WindowTitled(L"Garden planner")));
        EXPECT_EQ(program_.Wait(), 0u);
    }
};

TEST_F(FirstApplication, IsPackedFromThePageOfTheGuide) {
    const auto steps =
        BlocksOf(ReadFileBytes(fs::path(ExecutablePath()).parent_path() / L"first-application.md"));
    EXPECT_EQ(steps.size(), 5u);
    for (const Block& step : steps)
        Do(step);
    EXPECT_GT(fs::file_size(fs::path(program_.Work()) / L"garden.exe"), 1'000'000u);
}

}  // namespace
}  // namespace tarvik
