// A walk at random through what a page does with its window: `soak_walk [walks [seed]]`. In two windows side
// by side pages set callbacks and take them away, raise events, send messages to each other, ask people,
// navigate, close and quit, also inside of their callbacks and while native code waits for them. Fails when a
// page no longer goes on, and when more of anything is left than after the first few walks.

#include <windows.h>

#include <array>
#include <cstdio>
#include <optional>
#include <random>
#include <string>

#include "atl/module.h"
#include "base/com_ptr.h"
#include "base/status.h"
#include "host/registry/plugin_base.h"
#include "host/web_browser.h"
#include "tests/soak/course.h"
#include "tests/soak/engine_census.h"
#include "control/page/register.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

constexpr auto kPatience = std::chrono::seconds(60);
constexpr int kStepsOfAWalk = 40;

std::mt19937 chance;
int steps = 0;

// What others do to a window, at any moment.
void Strike(HWND window) {
    constexpr WPARAM kCommands[] = {SC_CLOSE, SC_MINIMIZE, SC_MAXIMIZE, SC_RESTORE};
    switch (chance() % 8) {
        case 0:
            DestroyWindow(window);
            break;
        case 1:
            SendMessageW(window, WM_CLOSE, 0, 0);
            break;
        case 2:
            PostMessageW(window, WM_ENDSESSION, TRUE, 0);
            break;
        default:
            PostMessageW(window, WM_SYSCOMMAND, kCommands[chance() % std::size(kCommands)], 0);
    }
}

// `external.walk`
class WalkPlugin : public TablePlugin<WalkPlugin> {
  public:
    static constexpr char kClassName[] = "WalkPlugin";
    static std::span<const Member<WalkPlugin>> Members();

    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown*) override {
        window_ = core ? core->GetWindowHandle() : nullptr;
        return S_OK;
    }
    uint32_t Random(ExactInt below) { return chance() % static_cast<uint32_t>(below.value); }
    void Step() { ++steps; }
    void Strike() { tarvik::Strike(window_); }

  private:
    HWND window_ = nullptr;
};

constexpr Member<WalkPlugin> kMembers[] = {
    Method<&WalkPlugin::Random>(-10000, L"random"),
    Method<&WalkPlugin::Step>(-9999, L"step"),
    Method<&WalkPlugin::Strike>(-9998, L"strike"),
};

std::span<const Member<WalkPlugin>> WalkPlugin::Members() {
    return kMembers;
}

[[maybe_unused]] const bool registered = RegisterBuiltIn<WalkPlugin>(L"walk", TVK::kRetainedPlugin);

constexpr const char* kPage =
    R"page(<!doctype html><title>Walk</title><body><p dragWindow=true>walk</p><script>
  console.showJsError = false;
  var w = external.window, msg = w.msg, walk = external.walk, depth = 0;
  function any(list) { return list[walk.random(list.length)]; }
  function coin() { return walk.random(2) === 1; }
  function handler() { return coin() && function () { act(); return coin(); }; }
  var events = ['onClose', 'onClosed', 'onMinimize', 'onMaximize', 'onRestore', 'onActivate', 'onInactivate',
                'onShutdown'];
  function set() { w[any(events)] = handler() || null; }
  function register() { msg.registerMsg('step', handler() || function () { return coin(); }); }
  function send() { msg.sendMsg(any(['walk', 'nobody']), 'step', 'x'.repeat(walk.random(5000))); }
  var acts = [
    set, set, set, register, register, send, send, send,
    function () { msg.unregisterMsg('step'); },
    function () { msg.uniqueID = any(['walk', 'other']); },
    function () { w[any(['caption', 'resize', 'topMost', 'sysMenu', 'minimizeBox'])] = coin(); },
    function () { w[any(['minWidth', 'maxHeight', 'width', 'height'])] = 200 + walk.random(400); },
    function () { w.shapeImage = ''; },
    function () { w.show(coin()); },
    function () { w.minimize(); },
    function () { w.messageBox('walk', any(['ok', 'warning'])); },
    function () { confirm('walk'); },
    function () { walk.strike(); },
    function () { w.close(); },
    function () { if (walk.random(4) === 0) w.quit(0); },
    function () { location.href = 'walk.html?' + walk.random(1000); },
    function () { setTimeout(act); }
  ];
  function act() {
    if (depth > 3) return;
    ++depth;
    try { any(acts)(); } finally { --depth; }
  }
  msg.uniqueID = 'walk';
  setInterval(function () { walk.step(); act(); }, 1);
</script>)page";

class Walker {
  public:
    explicit Walker(const std::wstring& page)
        : browser_(MakeCom<CWebBrowser>()), window_(browser_->CreateHidden(nullptr, page.c_str())) {}
    ~Walker() {
        if (IsOpen()) DestroyWindow(window_);
    }
    Walker(const Walker&) = delete;
    Walker& operator=(const Walker&) = delete;

    bool IsOpen() const { return browser_->GetWindowHandle() != nullptr; }

  private:
    ComPtr<CWebBrowser> browser_;
    HWND window_;
};

// Answers the dialogs of this thread.
BOOL CALLBACK AnswerDialog(HWND window, LPARAM) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (std::wstring_view(name) == L"#32770") PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    return TRUE;
}

void CALLBACK OnPerson(HWND, UINT, UINT_PTR, DWORD) {
    EnumThreadWindows(GetCurrentThreadId(), AnswerDialog, 0);
}

class Walks {
  public:
    Walks() : person_(SetTimer(nullptr, 0, 50, OnPerson)) { appModule.AddMessageLoop(&loop_); }
    ~Walks() {
        appModule.RemoveMessageLoop();
        KillTimer(nullptr, person_);
    }

    bool Run(int walks) {
        const Walker quiet(folder_.Write(L"quiet.html", "<!doctype html>"));
        PumpUntil([] { return false; }, std::chrono::seconds(3));
        census_.WatchPage();
        Course course("walks", [this] { return Now(); });
        const bool good = course.Run(5, walks, [this](int) { return Walk(); });
        census_.ForgetPage();
        return good;
    }

  private:
    // Wine keeps device contexts and pictures of controls for as many dialogs as have been open at a time.
    Reading Now() {
        constexpr double kRise = 20;
        Reading reading = census_.Now();
        const auto gdi = static_cast<double>(reading.holdings.Take("GDI handles"));
        reading.levels.push_back({"GDI handles", gdi, kRise});
        return reading;
    }
    bool Walk() {
        const int end = steps + kStepsOfAWalk;
        std::array<std::optional<Walker>, 2> walkers;
        const auto isThrough = [&] {
            for (auto& walker : walkers) {
                if (!walker || !walker->IsOpen()) walker.emplace(page_);
            }
            return steps >= end;
        };
        if (PumpUntil(isThrough, kPatience)) return true;
        return std::printf("%d steps are missing\n", end - steps), false;
    }

    CMessageLoop loop_;
    const UINT_PTR person_;
    const TempFolder folder_;
    const std::wstring page_ = folder_.Write(L"walk.html", kPage);
    EngineCensus census_;
    const PageControlClass control_;
};

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    SetEnvironmentVariableW(L"TARVIK_ENGINE", L"chromium");
    const int walks = argc > 1 ? _wtoi(argv[1]) : 100;
    tarvik::chance.seed(argc > 2 ? static_cast<unsigned>(_wtoi(argv[2])) : 1);
    bool good = false;
    const HRESULT status = tarvik::Guard([&] { good = tarvik::Walks().Run(walks); });
    if (FAILED(status)) std::printf("ended with 0x%08lX\n", static_cast<unsigned long>(status));
    return good ? 0 : 1;
}
