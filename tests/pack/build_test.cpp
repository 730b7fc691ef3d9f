// What a failed build leaves behind, and the limits of a build.

#include <random>

#include "tests/pack/pack_fixture.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

class Build : public PackTest {
  protected:
    Build() { folder_.Write(L"app\\resource\\index.html", "<!doctype html>"); }

    // The names in the folder of the test.
    std::vector<std::wstring> Names() const {
        std::vector<std::wstring> names;
        for (const auto& entry : fs::directory_iterator(folder_.Path()))
            names.push_back(entry.path().filename().wstring());
        std::ranges::sort(names);
        return names;
    }
};

TEST_F(Build, KeepsAnOutputThatCannotBeReplaced) {
    const std::wstring output = folder_.Write(L"out.exe", "old");
    {
        const UniqueHandle inUse = HoldFile(output, FILE_SHARE_READ);
        EXPECT_THAT(Run({L"build", L"app", L"-o", L"out.exe"}, 1),
                    HasSubstr("out.exe\" cannot be replaced (is it running?)"));
    }
    EXPECT_EQ(ReadFileBytes(output), "old");
    EXPECT_THAT(Names(), ElementsAre(L"app", L"out.exe"));
    Run({L"build", L"app", L"-o", L"out.exe"});
    EXPECT_GT(fs::file_size(output), fs::file_size(Host()));
    EXPECT_THAT(Names(), ElementsAre(L"app", L"out.exe"));
}

// Only operands follow `--`.
TEST_F(Build, AcceptsFoldersNamedLikeCommandsAndOptions) {
    fs::rename(folder_ / L"app", folder_ / L"list");
    Run({L"build", L"list", L"-o", L"out.exe"});
    fs::rename(folder_ / L"list", folder_ / L"--name=");
    Run({L"build", L"-o", L"out.exe", L"--company=", L"--", L"--name="});
    EXPECT_THAT(Run({L"build", L"--help"}),
                AllOf(HasSubstr("usage: tarvik-pack build FOLDER --output APP [OPTIONS]"),
                      HasSubstr("--copyright TEXT"), HasSubstr("Example")));
}

TEST_F(Build, LeavesNothingBehindIfInterrupted) {
    std::mt19937 random(1);
    std::string noise;
    noise.resize(64'000'000);
    for (size_t at = 0; at < noise.size(); at += 4) {
        const auto number = random();
        noise.replace(at, 4, reinterpret_cast<const char*>(&number), 4);
    }
    folder_.Write(L"app\\noise", noise);
    const std::wstring output = folder_.Write(L"out.exe", "old");
    const ConsoleProgram program(L"tarvik-pack", {L"build", L"app", L"-o", L"out.exe"}, folder_.Path());
    const fs::path unfinished = output + L"." + std::to_wstring(program.Id()) + L".tmp";
    ASSERT_TRUE(WaitFor([&] {
        std::error_code missing;
        const auto size = fs::file_size(unfinished, missing);
        return !missing && size > fs::file_size(Host()) + 1'000'000;
    }));
    program.PressCtrlC();
    EXPECT_EQ(program.Wait(), 1u);
    EXPECT_THAT(program.Error(), HasSubstr("Interrupted"));
    EXPECT_THAT(Names(), ElementsAre(L"app", L"out.exe"));
    EXPECT_EQ(ReadFileBytes(output), "old");
}

// Unpacked for a user whose temporary folder has a path of 64 characters, these paths have the maximum
// length.
TEST_F(Build, AcceptsNamesUpToTheLongestThatCanBeUnpacked) {
    const std::wstring folder = L"app\\" + std::wstring(100, L'd') + L"\\" + std::wstring(69, L'd');
    folder_.Write(folder + L"\\" + std::wstring(12, L'f'), "");
    Run({L"build", L"app", L"-o", L"out.exe"});
    const std::wstring file = folder_.Write(folder + L"\\" + std::wstring(13, L'f'), "");
    EXPECT_THAT(Run({L"build", L"app", L"-o", L"out.exe"}, 1), HasSubstr("183 can be unpacked"));
    fs::remove(file);
    fs::create_directory(folder_ / folder + L"d");
    EXPECT_THAT(Run({L"build", L"app", L"-o", L"out.exe"}, 1), HasSubstr("171 can be unpacked"));
}

}  // namespace
}  // namespace tarvik
