// The program as a process: which folder it works in, and that it lives until it is told to quit.

#include <windows.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "base/owners.h"
#include "base/text.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/support/temp_folder.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

bool WaitFor(const std::function<bool()>& condition) {
    for (int i = 0; i < 500; ++i) {
        if (condition()) return true;
        Sleep(20);
    }
    return false;
}

// A copy of the program in a folder of its own, with an archive attached or not.
class Program : public testing::Test {
  protected:
    ~Program() override {
        if (process_) TerminateProcess(process_.Get(), 99);
        if (process_) WaitForSingleObject(process_.Get(), 5000);
    }

    void Install(const std::string& attached) {
        fs::copy_file(fs::path(ExecutablePath()).parent_path() / "tarvik.exe", Executable());
        std::ofstream(fs::path(Executable()), std::ios::binary | std::ios::app) << attached;
        fs::create_directories(Temp());
        fs::create_directories(folder_ / L"work");
    }

    void Start(const std::wstring& arguments = L"") { StartWithTemp(Temp(), arguments); }

    void StartWithTemp(const std::wstring& temp, const std::wstring& arguments = L"") {
        SetEnvironmentVariableW(L"temp", temp.c_str());
        SetEnvironmentVariableW(L"TARVIK_ENGINE", L"mshtml");
        std::wstring line = L"\"" + Executable() + L"\" " + arguments;
        STARTUPINFOW startup = {sizeof startup};
        PROCESS_INFORMATION started = {};
        ASSERT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                   (folder_ / L"work").c_str(), &startup, &started));
        process_ = UniqueHandle(started.hProcess);
        CloseHandle(started.hThread);
        thread_ = started.dwThreadId;
    }

    // Browser windows of the program.
    int Windows() const {
        int count = 0;
        HWND window = nullptr;
        while ((window = FindWindowExW(nullptr, window, L"TarvikBrowserWindow", nullptr)) != nullptr) {
            count += GetWindowThreadProcessId(window, nullptr) == thread_;
        }
        return count;
    }

    // The code of an exit on WM_QUIT.
    DWORD Quit(int code) const {
        EXPECT_TRUE(WaitFor([&] { return PostThreadMessageW(thread_, WM_QUIT, code, 0) != FALSE; }));
        EXPECT_EQ(WaitForSingleObject(process_.Get(), 10'000), WAIT_OBJECT_0);
        DWORD exitCode = STILL_ACTIVE;
        GetExitCodeProcess(process_.Get(), &exitCode);
        return exitCode;
    }

    // What was unpacked, and is still there.
    std::vector<fs::path> Unpacked() const { return UnpackedIn(Temp()); }
    static std::vector<fs::path> UnpackedIn(const fs::path& temp) {
        std::vector<fs::path> folders;
        for (const auto& entry : fs::directory_iterator(temp)) {
            if (entry.path().filename().wstring().starts_with(L"TV")) folders.push_back(entry.path());
        }
        return folders;
    }

    std::wstring Executable() const { return folder_ / L"program.exe"; }
    std::wstring Temp() const { return folder_ / L"temp"; }

    const TempFolder folder_;
    UniqueHandle process_;
    DWORD thread_ = 0;
};

TEST_F(Program, UnpacksTheArchiveAttachedToItAndRemovesItAtTheEnd) {
    Install(WriteArchive({{"resource/index.html", "<html></html>"}, {"resource/sub/a.txt", "a"}}));
    Start();
    ASSERT_TRUE(WaitFor([&] { return Windows() == 1; }));
    const auto unpacked = Unpacked();
    ASSERT_EQ(unpacked.size(), 1u);
    EXPECT_EQ(unpacked[0].filename().wstring().size(), 10u) << "TV and eight digits";
    EXPECT_TRUE(FileExists((unpacked[0] / "resource" / "sub" / "a.txt").wstring()));
    EXPECT_EQ(Quit(3), 3u);
    EXPECT_TRUE(Unpacked().empty());
}

TEST_F(Program, OpensThePageOfTheCurrentFolderWithoutAnArchive) {
    Install("");
    folder_.Write(L"work\\resource\\index.html", "<html></html>");
    Start();
    ASSERT_TRUE(WaitFor([&] { return Windows() == 1; }));
    EXPECT_TRUE(Unpacked().empty());
    EXPECT_EQ(Quit(0), 0u);
}

TEST_F(Program, StartsWithABrokenArchiveAsWithNone) {
    std::string archive = WriteArchive({{"resource/index.html", "<html>a page that is long enough</html>"}});
    archive.replace(0, 60, 60, 'x');
    Install(archive);
    folder_.Write(L"resource\\index.html", "<html></html>");
    Start();
    ASSERT_TRUE(WaitFor([&] { return Windows() == 1; }));
    EXPECT_TRUE(Unpacked().empty());
    EXPECT_EQ(Quit(0), 0u);
}

TEST_F(Program, DoesNotUnpackToAPlaceWithTooLongAName) {
    Install(WriteArchive({{"resource/index.html", "<html></html>"}}));
    folder_.Write(L"resource\\index.html", "<html></html>");
    const auto atTheRoot = UnpackedIn(fs::path(folder_.Path()).root_path());
    StartWithTemp(Temp() + std::wstring(300, L'x'));
    ASSERT_TRUE(WaitFor([&] { return Windows() == 1; }));
    EXPECT_EQ(UnpackedIn(fs::path(folder_.Path()).root_path()), atTheRoot);
    EXPECT_EQ(Quit(0), 0u);
}

TEST_F(Program, DoesNotUnpackWhenItIsGivenAFolder) {
    Install(WriteArchive({{"resource/index.html", "<html></html>"}}));
    folder_.Write(L"app\\resource\\index.html", "<html></html>");
    Start(L"-d ..\\app");
    ASSERT_TRUE(WaitFor([&] { return Windows() == 1; }));
    EXPECT_TRUE(Unpacked().empty());
    EXPECT_EQ(Quit(0), 0u);
    EXPECT_TRUE(FileExists(folder_ / L"app\\resource\\index.html"));
}

TEST_F(Program, LingersWithoutAWindowWhenThereIsNoPage) {
    Install("");
    Start(L"-d ..\\missing");
    EXPECT_EQ(WaitForSingleObject(process_.Get(), 2000), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_EQ(Windows(), 0);
    EXPECT_EQ(Quit(4), 4u);
}

}  // namespace
}  // namespace tarvik
