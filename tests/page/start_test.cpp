// The start of applications, and pages with faults.

#include <aclapi.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "base/owners.h"
#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/support/engine_processes.h"
#include "tests/support/web_server.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

// A page that logs its location and quits.
constexpr const char* kLocationPage =
    "<!doctype html><script>console.log(location.href); external.window.quit(4);</script>";

class Start : public ProgramTest {
  protected:
    // Uses a copy of the program, with an archive attached, in the folder of this test.
    void Install(const std::string& attached = "") {
        const std::wstring copy = program_.Folder() / L"program.exe";
        fs::copy_file(fs::path(ExecutablePath()).parent_path() / "tarvik.exe", copy);
        std::ofstream(fs::path(copy), std::ios::binary | std::ios::app) << attached;
        program_.UseExecutable(copy);
    }

    // The first line that the page logs before it quits.
    std::string FirstLine() {
        EXPECT_EQ(program_.Wait(), 4u);
        const auto lines = program_.Lines();
        return lines.empty() ? "nothing" : lines.front();
    }

    // The folders of unpacked archives.
    static std::vector<fs::path> Unpacked(const fs::path& temp) {
        std::vector<fs::path> folders;
        for (const auto& entry : fs::directory_iterator(temp)) {
            if (entry.path().filename().wstring().starts_with(L"TV") && entry.is_directory())
                folders.push_back(entry.path());
        }
        return folders;
    }
};

struct Place {
    std::wstring file;  // relative to the folder of the test
    std::wstring arguments;
    std::string location;  // the end of the page's location
};

void PrintTo(const Place& place, std::ostream* out) {
    *out << place.location;
}

class StartAt : public Start, public testing::WithParamInterface<Place> {};

TEST_P(StartAt, OpensThePage) {
    std::wstring path = program_.Folder().Write(GetParam().file, kLocationPage);
    std::ranges::replace(path, L'\\', L'/');
    std::wstring arguments = GetParam().arguments;
    if (const size_t at = arguments.find(L"PATH"); at != std::wstring::npos) arguments.replace(at, 4, path);
    program_.Start(arguments);
    EXPECT_THAT(FirstLine(), EndsWith(GetParam().location));
}

const Place kPlaces[] = {
    {L"work\\resource\\index.html", L"", "/work/resource/index.html"},
    {L"an app \u00e4\u6f22%20\\resource\\index.html", L"-d \"..\\an app \u00e4\u6f22%20\"",
     "/an%20app%20%C3%A4%E6%BC%A2%2520/resource/index.html"},
    {L"C# app\\resource\\index.html", L"-d \"..\\C# app\"", "/C%23%20app/resource/index.html"},
    {L"work\\sub\\page.html", L"-f sub\\page.html#part/2", "/work/sub/page.html#part/2"},
    {L"work\\page.html", L"-f file:///PATH#part", "/work/page.html#part"},
    {L"unused.html",
     L"-f \"data:text/html,<script>console.log(location.protocol);external.window.quit(4)</script>\"",
     "data:"},
};

INSTANTIATE_TEST_SUITE_P(, StartAt, testing::ValuesIn(kPlaces));

// Whether the current user owns a file or folder, and only this user and the system have access to it.
bool IsPrivate(const fs::path& path) {
    std::vector<char> user(SECURITY_MAX_SID_SIZE + sizeof(TOKEN_USER));
    auto size = static_cast<DWORD>(user.size());
    UniqueHandle token;
    OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.Receive());
    EXPECT_TRUE(GetTokenInformation(token.Get(), TokenUser, user.data(), size, &size));
    const PSID sid = reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid;
    PSID owner = nullptr;
    ACL* list = nullptr;
    UniqueLocal descriptor;
    GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT,
                          OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION, &owner, nullptr, &list,
                          nullptr, descriptor.Receive());
    if (!list || !EqualSid(owner, sid)) return false;
    for (WORD i = 0; i < list->AceCount; ++i) {
        void* entry = nullptr;
        GetAce(list, i, &entry);
        const PSID account = &static_cast<ACCESS_ALLOWED_ACE*>(entry)->SidStart;
        if (!EqualSid(account, sid) && !IsWellKnownSid(account, WinLocalSystemSid)) return false;
    }
    return true;
}

// The folders of another running program and of other owners stay.
TEST_F(Start, UnpacksPrivatelyAndRemovesFoldersOfKilledPrograms) {
    Install(WriteArchive({{"resource/index.html", Page("console.log('up')")}}));
    program_.Folder().Write(L"temp\\TV0000000A\\strange.txt", "");
    program_.Start();
    ASSERT_TRUE(program_.WaitForLine("up"));
    auto unpacked = Unpacked(program_.Temp());
    ASSERT_EQ(unpacked.size(), 2u);
    const fs::path killed = unpacked[1];
    EXPECT_EQ(killed.filename().wstring().size(), 10u) << "TV and eight hexadecimal digits";
    EXPECT_TRUE(IsPrivate(killed));
    EXPECT_FALSE(IsPrivate(unpacked[0]));
    EXPECT_TRUE(IsPrivate(killed.wstring() + L".lock"));
    program_.Kill();
    EXPECT_TRUE(fs::exists(killed / "resource"));
    UniqueHandle other = HoldFile(program_.Folder().Write(L"temp\\TV0000000B.lock", ""));
    program_.Folder().Write(L"temp\\TV0000000B\\used.txt", "");
    // Names of other programs that match the pattern of FindFirstFile.
    const wchar_t* const others[] = {L"TVSETTINGS", L"TVSETTINGS.lock", L"TVA", L"TVA.lock"};
    for (const std::wstring name : others)
        program_.Folder().Write(L"temp\\" + (name.ends_with(L".lock") ? name : name + L"\\file.txt"), "");

    const auto startAgain = [&] {
        program_.Start();
        EXPECT_TRUE(program_.WaitForLine("up"));
        EXPECT_EQ(program_.Quit(3), 3u);
        std::vector<std::wstring> names;
        for (const auto& entry : fs::directory_iterator(program_.Temp()))
            if (const auto name = entry.path().filename().wstring();
                std::ranges::find(others, name) == std::end(others))
                names.push_back(name);
        for (const wchar_t* name : others)
            EXPECT_TRUE(fs::exists(fs::path(program_.Temp()) / name)) << Narrow(name);
        return names;
    };
    EXPECT_THAT(startAgain(), UnorderedElementsAre(L"TV0000000A", L"TV0000000B", L"TV0000000B.lock"));
    other.Reset();
    EXPECT_THAT(startAgain(), UnorderedElementsAre(L"TV0000000A"));
}

// The end of the program leaves a download a moment to finish.
TEST_F(Start, RemovesTheUnpackedFolderAfterADownloadIntoIt) {
    const WebServer server([&](const WebExchange& exchange) {
        exchange.Send("HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nx");
        EXPECT_TRUE(program_.WaitForLine("quits"));
        exchange.Send("xx");
    });
    Install(WriteArchive({{"resource/index.html",
                           Page("external.http.createClient().downloadToFile({url: '" + Narrow(server.Url()) +
                                "', destPath: 'file'}); setInterval(function () {"
                                "if (!external.file.isFileExist('file')) return;"
                                "console.log('quits'); external.window.quit(3); }, 10);")}}));
    program_.Start();
    EXPECT_EQ(program_.Wait(), 3u);
    EXPECT_TRUE(fs::is_empty(program_.Temp()));
}

// The program looks for its page as if nothing were attached.
class NotUnpacked : public Start {
  protected:
    const std::string archive_ = WriteArchive({{"resource/index.html", Page("external.window.quit(9)")}});
};

TEST_F(NotUnpacked, IfTheArchiveIsDamaged) {
    std::string broken = archive_;
    broken.replace(0, 60, 60, 'x');
    Install(broken);
    program_.Folder().Write(L"resource\\index.html", Page("console.log('beside the program')"));
    program_.Start();
    EXPECT_TRUE(program_.WaitForLine("beside the program"));
    EXPECT_TRUE(fs::is_empty(program_.Temp())) << "also before the end";
}

TEST_F(NotUnpacked, IfAFolderIsGiven) {
    Install(archive_);
    program_.Folder().Write(L"app\\resource\\index.html", kLocationPage);
    program_.Start(L"-d ..\\app");
    EXPECT_THAT(FirstLine(), EndsWith("/app/resource/index.html"));
    EXPECT_TRUE(FileExists(program_.Folder() / L"app\\resource\\index.html"));
}

// By design the program keeps running without a window; it reports the reason, and ends its engine.
class WithoutAPage : public Start {
  protected:
    void ExpectNoPage() {
        EXPECT_TRUE(WaitFor([&] { return Reports("\\resource\\index.html\" does not exist"); }));
        EXPECT_TRUE(WaitFor([&] { return program_.Windows().empty(); }));
        EngineProcesses engine(program_.Mark());
        EXPECT_TRUE(WaitFor([&] { return engine.Snapshot().empty(); }));
        EXPECT_EQ(program_.Quit(4), 4u);
    }
    bool Reports(std::string_view text) const {
        return std::ranges::any_of(
            program_.Lines(), [&](const std::string& line) { return line.find(text) != std::string::npos; });
    }
};

TEST_F(WithoutAPage, ReportsAMissingFolder) {
    program_.Start(L"-d ..\\missing");
    ExpectNoPage();
    EXPECT_TRUE(Reports("\"..\\missing\" (-d)"));
}

TEST_F(WithoutAPage, EndsThePrelaunchedEngine) {
    Install(WriteArchive({{"readme.txt", "no page"}}));
    program_.Start();
    ExpectNoPage();
}

class BadPage : public Start {
  protected:
    HWND OpenBad(const std::string& script) {
        Open("external.window.title = 'Bad'; external.window.show(true);" + script);
        return program_.WindowTitled(L"Bad");
    }
};

// The call of the other page fails when the window of the loop is closed.
TEST_F(BadPage, EndlessLoopBlocksNoOtherWindow) {
    Write(L"loop.html",
          "external.window.title = 'Loop'; windowContext.loop = function () {"
          "console.log('loop'); for (;;); }; windowCallback()");
    Write(L"clock.html", "setInterval(function () { console.log('clock'); }, 50);");
    ASSERT_TRUE(
        OpenBad("var context = {}; createWindow({url: 'loop.html', context: context, callback: function () {"
                "setTimeout(function () { createWindow({url: 'clock.html'});"
                "try { context.loop(); } catch (e) { console.log('failed ' + (e.number < 0)); }"
                "external.window.quit(4); }); } });"));
    ASSERT_TRUE(program_.WaitForLine("loop"));
    const auto clock = [this] { return std::ranges::count(program_.Lines(), "clock"); };
    const auto before = clock();
    EXPECT_TRUE(WaitFor([&] { return clock() > before + 5; }));
    PostMessageW(program_.WindowTitled(L"Loop"), WM_CLOSE, 0, 0);
    EXPECT_EQ(program_.Wait(), 4u);
    EXPECT_TRUE(program_.HasLine("failed true"));
}

// The end of the program does not wait for operations, so it no longer serves their calls.
TEST_F(BadPage, EndlessLoopInACallbackDoesNotBlockTheEnd) {
    for (const wchar_t* name : {L"1.txt", L"2.txt", L"3.txt"})
        program_.Folder().Write(std::wstring(L"work\\") + name, "");
    Open(
        "var n = 0; external.file.enumFiles({path: '.', filter: 'txt$', callback: function () {"
        "if (n++) { console.log('loop'); for (;;); } external.window.quit(4); }, completed: function () {} "
        "});");
    EXPECT_EQ(program_.Wait(), 4u);
}

TEST_F(BadPage, MayCallAfterAStackOverflowAndFromADeepStack) {
    ASSERT_TRUE(
        OpenBad("function down(n) { return n ? down(n - 1) : external.window.title; }"
                "function fall() { fall(); }"
                "try { fall(); } catch (e) { console.log(e instanceof RangeError ? 'deep' : e.message); }"
                "console.log(down(1000)); external.window.quit(4);"));
    EXPECT_EQ(FirstLine(), "deep");
    EXPECT_THAT(program_.Lines(), ElementsAre("deep", "Bad"));
}

}  // namespace
}  // namespace tarvik
