// The engine's processes: the program without them, and their end with the program.

#include <algorithm>

#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/support/engine_processes.h"

namespace tarvik {
namespace {

std::string NoticeIn(HWND window) {
    return Narrow(TextOf(InnermostWindow(window)));
}

using Process = EngineProcesses::Process;

// Whether there are dark pixels on a light background in the middle of a window.
bool ShowsText(HWND window) {
    constexpr int kLight = 230, kDark = 150;
    RECT area = {};
    GetClientRect(window, &area);
    if (GetGValue(PixelOnScreen(window, {2, 2})) < kLight) return false;
    int darkPixels = 0;
    for (LONG y = -10; y < 10; ++y)
        for (LONG x = -50; x < 50; ++x)
            darkPixels += GetGValue(PixelOnScreen(window, {area.right / 2 + x, area.bottom / 2 + y})) < kDark;
    return darkPixels > 50;
}

class EngineLife : public ProgramTest {
  protected:
    void SetUp() override {
        if (!EngineProcesses::AreVisible())
            GTEST_SKIP() << "the engine's processes are visible under Wine only";
    }

    // Opens a window and waits until it shows its page.
    HWND OpenShown(const std::string& script = "") {
        Open("external.window.title = 'Engine'; external.window.show(true);" + script);
        const HWND window = program_.WindowTitled(L"Engine");
        EXPECT_TRUE(WaitForColour(InnermostWindow(window), kBlue));
        EXPECT_GT(engine_.Snapshot().size(), 3u);
        return window;
    }

    void ExpectNotice(HWND window, const char* text) {
        EXPECT_TRUE(ShowsNotice(window, text)) << NoticeIn(window);
    }

    void ExpectNothingLeft() {
        EXPECT_TRUE(WaitFor([&] { return engine_.Remaining().empty(); })) << engine_.Remaining();
    }

    EngineProcesses engine_{program_.Mark()};
};

TEST_F(EngineLife, ShowsANoticeIfTheEngineIsMissingAndTriesAgain) {
    const std::wstring engine = L"/tmp/tarvik-engine-" + Widen(program_.Mark());
    program_.SetVariable(L"TARVIK_BROWSER", engine);
    Open("external.window.quit(9)");
    EXPECT_TRUE(WaitFor([&] { return program_.Windows().size() == 1; }));
    const HWND window = program_.Windows().at(0);
    const HWND page = InnermostWindow(window);
    ExpectNotice(window, Narrow(engine).c_str());
    EXPECT_TRUE(WaitFor([&] { return IsWindowVisible(window) && ShowsText(page); }));
    RunOnUnixHost(L"ln -s /usr/bin/chromium " + engine);
    const std::wstring link = L"Z:" + engine;
    EXPECT_TRUE(WaitFor([&] { return FileExists(link); }));
    ClickNotice(window);
    EXPECT_EQ(program_.Wait(), 9u) << "the page is not loaded";
    RunOnUnixHost(L"rm " + engine);  // DeleteFile would delete the target
    EXPECT_TRUE(WaitFor([&] { return !FileExists(link); }));
}

// The program is killed during a call of one page, while another page is idle.
TEST_F(EngineLife, EndsWithAKilledProgram) {
    OpenShown(
        "if (typeof windowContext === 'undefined') { createWindow({url: 'index.html', context: {}});"
        "console.log('calls'); for (;;) external.window.title; }");
    ASSERT_TRUE(program_.WaitForLine("calls"));
    EXPECT_GT(engine_.Snapshot().size(), 3u);
    program_.Kill();
    ExpectNothingLeft();
}

TEST_F(EngineLife, EndsHangingProcesses) {
    struct {
        const char* what;
        bool (Process::*hangs)() const;
        std::function<void(HWND)> end;
    } const kCases[] = {
        {"of a killed program", &Process::IsEngine, [this](HWND) { program_.Kill(); }},
        {"of a killed engine", &Process::IsPage, [this](HWND) { engine_.Kill(&Process::IsEngine); }},
        {"of a closed window", &Process::IsEngine, [](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); }},
    };
    for (const auto& [what, hangs, end] : kCases) {
        SCOPED_TRACE(what);
        const HWND window = OpenShown();
        engine_.Suspend(hangs);
        end(window);
        ExpectNothingLeft();
        program_.Kill();
    }
}

TEST_F(EngineLife, ShowsANoticeIfAProcessEndsAndLoadsAgain) {
    const HWND window = OpenShown();
    const HWND page = InnermostWindow(window);
    for (const auto& [process, notice] : {std::pair(&Process::IsPage, "page has stopped"),
                                          std::pair(&Process::IsEngine, "web engine has stopped")}) {
        engine_.Kill(process);
        ExpectNotice(window, notice);
        EXPECT_TRUE(WaitFor([&] { return PixelOnScreen(page, {5, 5}) != kBlue; }));
        ClickNotice(window);
        EXPECT_TRUE(WaitForColour(page, kBlue));
        EXPECT_EQ(NoticeIn(window), "");
    }
    engine_.Kill(&Process::IsPage);
    ExpectNotice(window, "[Load again]");
    PressKeys({VK_SPACE});
    EXPECT_TRUE(WaitForColour(page, kBlue));
    EXPECT_EQ(program_.Quit(3), 3u);
    ExpectNothingLeft();
}

// The engine is killed during nested calls between two pages.
TEST_F(EngineLife, FailsCallsIfTheEngineIsKilled) {
    const HWND window = OpenShown(
        "if (typeof windowContext === 'undefined') {"
        "var me = { wait: function () { for (;;) external.window.title; } };"
        "createWindow({url: 'index.html', context: me});"
        "me.wait(); } else { console.log('second'); windowContext.wait(); }");
    ASSERT_TRUE(program_.WaitForLine("second"));
    engine_.Kill(&Process::IsEngine);
    for (const HWND each : program_.Windows())
        ExpectNotice(each, "web engine has stopped");
    EXPECT_EQ(program_.Windows().size(), 2u);
    EXPECT_TRUE(Close(window));
    EXPECT_EQ(program_.Quit(3), 3u);
    ExpectNothingLeft();
}

// Even an endless loop in a page ends when its window is closed.
TEST_F(EngineLife, EndsThePageOfAClosedWindow) {
    Write(L"loop.html", "console.log('loop'); for (;;);");
    const HWND window = OpenShown(
        "var child = null; setInterval(function () { var title = external.window.title;"
        "if (title === 'open' && !child) child = createWindow({url: 'loop.html'});"
        "if (title === 'close') child.close(); }, 50);");
    const auto renderers = [&] { return std::ranges::count_if(engine_.Snapshot(), &Process::IsPage); };
    // The engine keeps a spare renderer for the next page, and then starts another.
    const auto before = renderers();
    SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"open"));
    ASSERT_TRUE(program_.WaitForLine("loop"));
    EXPECT_TRUE(WaitFor([&] { return renderers() > before; }));
    SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"close"));
    EXPECT_TRUE(WaitFor([&] { return renderers() <= before; })) << before << " -> " << renderers();
}

}  // namespace
}  // namespace tarvik
