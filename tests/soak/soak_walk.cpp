// soak_walk [WALKS [SEED]]: performs random actions of pages. The same page runs in two windows; it acts at
// random, also inside its callbacks and while native code waits for it. It sets and removes callbacks, raises
// events, sends messages, opens dialogs, builds menus that share submenus, opens menus inside menus, shows
// icons, navigates, closes windows and quits. A simulated user drives dialogs and menus, and windows are
// closed. Fails if a page hangs, or if resources leak.

#include <windows.h>

#include <array>
#include <cstdio>
#include <optional>
#include <string>

#include "host/plugin_registry/plugin_base.h"
#include "tests/soak/page_soak.h"

namespace tarvik {
namespace {

constexpr auto kTimeout = std::chrono::seconds(60);
constexpr UINT kPause = 50;
constexpr int kStepsOfAWalk = 60;

int steps = 0;

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
            PostMessageW(window, WM_SYSCOMMAND, AnyOf(kCommands), 0);
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
    int Random(AnyInt32 below) { return tarvik::Random(below.value); }
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
    Method<&WalkPlugin::Random>(L"random", -10000),
    Method<&WalkPlugin::Step>(L"step", -9999),
    Method<&WalkPlugin::Disturb>(L"disturb", -9998),
    Method<&WalkPlugin::Send>(L"send", -9997),
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
    function () { setTimeout(function () { throw new Error('meant to fail'); }); },
    function () {
      var frame = document.createElement('iframe');
      frame.srcdoc = '<script>external.window.title; parent.act();<\/script>';
      document.body.appendChild(frame);
    },
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

// Presses keys in the open menu, or closes it, or disturbs its window.
void UseMenu(HWND owner) {
    constexpr WPARAM kKeys[] = {VK_DOWN, VK_UP, VK_RIGHT, VK_RETURN, VK_ESCAPE};
    if (Random(30) == 0) return Disturb(GetAncestor(owner, GA_ROOT));
    if (Random(4) == 0) {
        EndMenu();
        return;
    }
    for (int presses = Random(5); presses >= 0; --presses)
        PostMessageW(owner, WM_KEYDOWN, AnyOf(kKeys), 0);
}

class Walks : public PageSoak {
  public:
    Walks() {
        // Wine caches device contexts, bitmaps and icons for as many dialogs and menus as were open at the
        // same time.
        monitor_.AllowRise("GDI handles", 40);
        monitor_.AllowRise("USER handles", 5);
    }
    ~Walks() { KillTimer(nullptr, user_); }

    bool Run(int walks) {
        return RunBesideAnIdlePage([&](const BrowserWindow&) {
            return SoakLoop("walks", [this] { return monitor_.Now(); }).Run(5, walks, [this](int) {
                return Walk();
            });
        });
    }

  private:
    static void CALLBACK SimulateUser(HWND, UINT, UINT_PTR, DWORD) {
        CancelDialogs();
        GUITHREADINFO info = {sizeof info};
        GetGUIThreadInfo(GetCurrentThreadId(), &info);
        if (info.hwndMenuOwner) UseMenu(info.hwndMenuOwner);
    }

    bool Walk() {
        const int end = steps + kStepsOfAWalk;
        std::array<std::optional<BrowserWindow>, 2> windows;
        const auto isFinished = [&] {
            for (auto& window : windows) {
                if (!window || !window->IsOpen()) window.emplace(page_);
            }
            return steps >= end;
        };
        if (PumpUntil(isFinished, kTimeout)) return true;
        return std::printf("%d steps are missing\n", end - steps), false;
    }

    const UINT_PTR user_ = SetTimer(nullptr, 0, kPause, SimulateUser);
    const std::wstring page_ = folder_.Write(L"walk.html", std::string(kHead) + kActs);
};

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    return tarvik::RunSoak(argc, argv, {100, 1}, [](const std::vector<int>& numbers) {
        tarvik::SeedRandom(numbers[1]);
        return tarvik::Walks().Run(numbers[0]);
    });
}
