// Follows the guide's first page to the letter.

#include <windows.h>
#include <shellapi.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <regex>
#include <string>

#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/support/console_program.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

// A fenced block: its language, the file that it is for, if any, and its text.
struct Block {
    std::string language;
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
    FirstApplication() { DeleteBeds(); }
    ~FirstApplication() override { DeleteBeds(); }

    void Do(const Block& step) {
        if (step.language == "html") program_.Folder().Write(L"work\\" + Widen(step.file), step.text);
        if (step.language != "bat") return;
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
    static constexpr const wchar_t* kSettings = L"Software\\Garden planner";

    static void DeleteBeds() { RegDeleteTreeW(HKEY_CURRENT_USER, kSettings); }
    // As the application stores them: a list in JSON. Initially there is one.
    static std::wstring Beds() {
        wchar_t beds[100] = L"[]";
        DWORD size = sizeof beds;
        RegGetValueW(HKEY_CURRENT_USER, kSettings, L"beds", RRF_RT_REG_SZ, nullptr, beds, &size);
        return beds;
    }
    static void AddBed() {
        const std::wstring before = Beds();
        // The page ignores keys until its field has the focus.
        EXPECT_TRUE(WaitFor([&] {
            PressKeys({'S'});
            PressKeys({VK_RETURN});
            return WaitFor([&] { return Beds() != before; }, 2000);
        }));
    }
    void RunUntilItsWindowCloses(const std::wstring& arguments) {
        const auto beds = std::ranges::count(Beds(), L',') + 1;
        program_.Start(arguments);
        EXPECT_TRUE(program_.WaitForLine("Garden planner has " + std::to_string(beds) + " beds"));
        const HWND window = program_.WindowTitled(L"Garden planner");
        AddBed();
        EXPECT_TRUE(Close(window));
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
