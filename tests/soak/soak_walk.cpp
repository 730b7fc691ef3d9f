// soak_walk [WALKS [SEED]]: performs random actions of pages. The same page runs in two windows; it acts at
// random, also inside its callbacks and while native code waits for it. It sets and removes callbacks, raises
// events, sends messages, opens dialogs, builds menus that share submenus, opens menus inside menus, shows
// icons, navigates, closes windows and quits. A simulated user drives dialogs and menus, and windows are
// closed. Fails if a page hangs, or if resources leak.

#include <windows.h>

#include <array>
#include <cstdio>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "atl/module.h"
#include "host/plugin_registry/plugin_base.h"
#include "host/web_browser.h"
#include "page_control/page/register.h"
#include "tarvik/com_ptr.h"
#include "tarvik/status.h"
#include "tests/soak/course.h"
#include "tests/soak/engine_census.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

constexpr auto kTimeout = std::chrono::seconds(60);
constexpr UINT kPause = 50;
constexpr int kStepsOfAWalk = 60;

std::mt19937 chance;
int steps = 0;

int Random(int below) {
    return static_cast<int>(chance() % static_cast<unsigned>(below));
}

// What a user or the system may do to a window at any time.
void Disturb(HWND window) {
    constexpr WPARAM kCommands[] = {SC_CLOSE, SC_MINIMIZE, SC_MAXIMIZE, SC_RESTORE};
    switch (Random(8)) {
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
            PostMessageW(window, WM_SYSCOMMAND, kCommands[Random(std::size(kCommands))], 0);
    }
}

// The plug-in `walk`, which the page uses.
class WalkPlugin : public TablePlugin<WalkPlugin> {
  public:
    static constexpr char kClassName[] = "WalkPlugin";
    static std::span<const Member<WalkPlugin>> Members();

    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown*) override {
        window_ = core ? core->GetWindowHandle() : nullptr;
        return S_OK;
    }
    Integer Random(AnyInt32 below) { return {tarvik::Random(below.value)}; }
    void Step() { ++steps; }
    void Disturb() { tarvik::Disturb(window_); }
    void Send(AnyInt32 message, AnyInt32 first, AnyInt32 second) {
        SendMessageW(window_, static_cast<UINT>(message.value), static_cast<WPARAM>(first.value),
                     second.value);
    }

  private:
    HWND window_ = nullptr;
};

constexpr Member<WalkPlugin> kMembers[] = {
    Method<&WalkPlugin::Random>(-10000, L"random"),
    Method<&WalkPlugin::Step>(-9999, L"step"),
    Method<&WalkPlugin::Disturb>(-9998, L"disturb"),
    Method<&WalkPlugin::Send>(-9997, L"send"),
};

std::span<const Member<WalkPlugin>> WalkPlugin::Members() {
    return kMembers;
}

[[maybe_unused]] const bool registered = RegisterBuiltIn<WalkPlugin>(L"walk", TVK::kRetainedPlugin);

constexpr const char* kHead =
    R"page(<!doctype html><title>Walk</title><body><p dragWindow=true>walk</p><script>
  console.showJsError = false;
  var w = external.window, walk = external.walk, depth = 0;
  function any(list) { return list[walk.random(list.length)]; }
  function coin() { return walk.random(2) === 1; }
  function handler() { return coin() && function () { act(); return coin(); }; }
  function act() {
    if (depth > 3) return;
    ++depth;
    try { any(acts)(); } finally { --depth; }
  }
)page";

constexpr const char* kActs = R"page(
  var msg = w.msg, menus = [], t = external.tray;
  var events = ['onClose', 'onClosed', 'onMinimize', 'onMaximize', 'onRestore', 'onActivate', 'onInactivate',
                'onShutdown'];
  function set() { w[any(events)] = handler() || null; }
  function register() { msg.registerMsg('step', handler() || function () { return coin(); }); }
  function send() { msg.sendMsg(any(['walk', 'none']), 'step', 'x'.repeat(walk.random(5000))); }
  function make() {
    if (menus.length < 12) menus.push(external.menu.createMenu(any(['popupMenu', 'trayMenu', 'windowMenu'])));
  }
  function item() {
    return { name: any(['a', 'b', '&c', '']), gray: walk.random(8) === 0, separator: walk.random(8) === 0,
             callback: handler() || null, context: any([undefined, null, 5, 'text', menus]) };
  }
  function append() { for (var i = walk.random(30); i >= 0; --i) any(menus).appendMenu(item()); }
  function nest() { any(menus).appendMenu({ name: any(['a', 'more']), subMenu: any(menus) }); }
  function popup() { if (coin()) any(menus).popup(); else any(menus).popup(walk.random(9999) - 5000, 20); }
  var acts = [
    set, set, set, register, register, send, send, send, make, make, append, append, nest, nest, popup, popup, popup,
    function () { msg.unregisterMsg('step'); },
    function () { msg.uniqueID = any(['walk', 'other']); },
    function () { w[any(['caption', 'resize', 'topMost', 'sysMenu', 'minimizeBox'])] = coin(); },
    function () { w[any(['minWidth', 'maxHeight', 'width', 'height'])] = 200 + walk.random(400); },
    function () { w.shapeImage = ''; },
    function () { w.show(coin()); },
    function () { w.minimize(); },
    function () { w.messageBox('walk', any(['ok', 'warning'])); },
    function () { confirm('walk'); },
    function () { walk.disturb(); },
    function () { w.close(); },
    function () { if (walk.random(4) === 0) w.quit(0); },
    function () { location.href = 'walk.html?' + walk.random(1000); },
    function () { setTimeout(act); },
    function () { any(menus).enable(any(['A', 'more']), coin()); },
    function () { menus.push(any(menus).getSubMenu('More') || any(menus)); },
    function () { any(menus).appendMenu({ get name() { act(); return 'act'; }, callback: act }); },
    function () { menus.splice(walk.random(menus.length), 1 + walk.random(3)); make(); },
    function () { w.menu = any(menus); },
    function () { for (var i = 0; i < 20; ++i) walk.send(0x111, 2000 + walk.random(1200), 0); },
    function () { t.addTray('tip'); },
    function () { t[any(['show', 'hide'])](); },
    function () { t[any(['onClick', 'onDbClick', 'onRClick'])] = handler() || act; },
    function () { walk.send(4024, 200, any([0x202, 0x203, 0x205])); }
  ];
  msg.uniqueID = 'walk';
  make();
  setInterval(function () { walk.step(); act(); }, 1);
</script>)page";

BOOL CALLBACK CancelDialog(HWND window, LPARAM) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (std::wstring_view(name) == L"#32770") PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    return TRUE;
}

// Presses keys in the open menu, or closes it, or disturbs its window.
void UseMenu(HWND owner) {
    constexpr WPARAM kKeys[] = {VK_DOWN, VK_UP, VK_RIGHT, VK_RETURN, VK_ESCAPE};
    if (Random(30) == 0) return Disturb(GetAncestor(owner, GA_ROOT));
    if (Random(4) == 0) {
        EndMenu();
        return;
    }
    for (int presses = Random(5); presses >= 0; --presses)
        PostMessageW(owner, WM_KEYDOWN, kKeys[Random(5)], 0);
}

void CALLBACK SimulateUser(HWND, UINT, UINT_PTR, DWORD) {
    EnumThreadWindows(GetCurrentThreadId(), CancelDialog, 0);
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetCurrentThreadId(), &info);
    if (info.hwndMenuOwner) UseMenu(info.hwndMenuOwner);
}

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

class Walks {
  public:
    Walks() { appModule.AddMessageLoop(&loop_); }
    ~Walks() {
        appModule.RemoveMessageLoop();
        KillTimer(nullptr, user_);
    }

    bool Run(int walks) {
        const Walker quiet(folder_.Write(L"quiet.html", "<!doctype html>"));
        PumpUntil([] { return false; }, std::chrono::seconds(3));
        census_.WatchPage(control_.Engine());
        Course course("walks", [this] { return Now(); });
        const bool good = course.Run(5, walks, [this](int) { return Walk(); });
        census_.ForgetPage();
        return good;
    }

  private:
    // Wine caches device contexts, bitmaps and icons for as many dialogs and menus as were open at the same
    // time.
    Reading Now() {
        Reading reading = census_.Now();
        for (const auto& [what, rise] : {std::pair("GDI handles", 40.0), std::pair("USER handles", 5.0)}) {
            const auto count = static_cast<double>(reading.counts.Take(what));
            reading.levels.push_back({what, count, rise});
        }
        return reading;
    }
    bool Walk() {
        const int end = steps + kStepsOfAWalk;
        std::array<std::optional<Walker>, 2> walkers;
        const auto isFinished = [&] {
            for (auto& walker : walkers) {
                if (!walker || !walker->IsOpen()) walker.emplace(page_);
            }
            return steps >= end;
        };
        if (PumpUntil(isFinished, kTimeout)) return true;
        return std::printf("%d steps are missing\n", end - steps), false;
    }

    CMessageLoop loop_;
    const UINT_PTR user_ = SetTimer(nullptr, 0, kPause, SimulateUser);
    const TempFolder folder_;
    const std::wstring page_ = folder_.Write(L"walk.html", std::string(kHead) + kActs);
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
    if (FAILED(status)) std::printf("failed with 0x%08lX\n", static_cast<unsigned long>(status));
    return good ? 0 : 1;
}
