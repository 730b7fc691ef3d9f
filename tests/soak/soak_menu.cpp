// A walk at random through menus and icons: `soak_menu [walks [seed]]`. Pages build menus that share others,
// set them into the bar, let go of them, open them, also inside of their functions and while another one is
// open, show icons and are told of clicks; a person chooses or not, or the window goes.

#include <windows.h>

#include "tests/soak/walks.h"

namespace {

constexpr const char* kActs = R"page(
  var menus = [], t = external.tray, lastId = 2000;
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
    make, make, append, append, nest, nest, popup, popup, popup,
    function () { any(menus).enable(any(['A', 'more']), coin()); },
    function () { menus.push(any(menus).getSubMenu('More') || any(menus)); },
    function () { any(menus).appendMenu({ get name() { act(); return 'act'; }, callback: act }); },
    function () { menus.splice(walk.random(menus.length), 1 + walk.random(3)); make(); },
    function () { w.menu = any(menus); },
    function () { w.show(coin()); },
    function () { for (var i = 0; i < 20; ++i) walk.send(0x111, 2000 + walk.random(1200), 0); },
    function () { t.addTray('tip'); },
    function () { t[any(['show', 'hide'])](); },
    function () { t[any(['onClick', 'onDbClick', 'onRClick'])] = handler() || act; },
    function () { walk.send(4024, 200, any([0x202, 0x203, 0x205])); },
    function () { if (coin()) walk.strike(); },
    function () { if (coin()) location.href = 'walk.html?' + walk.random(1000); }
  ];
  make();
)page";

// The window whose menu is open on this thread.
HWND MenuOwner() {
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetCurrentThreadId(), &info);
    return info.hwndMenuOwner;
}

// Looks around in the menu that is open, and chooses something or goes away.
void CALLBACK OnPerson(HWND, UINT, UINT_PTR, DWORD) {
    constexpr WPARAM kKeys[] = {VK_DOWN, VK_UP, VK_RIGHT, VK_RETURN, VK_ESCAPE};
    const HWND owner = MenuOwner();
    if (!owner) return;
    if (tarvik::Random(30) == 0) return tarvik::Strike(GetAncestor(owner, GA_ROOT));
    if (tarvik::Random(4) == 0) {
        EndMenu();
        return;
    }
    for (int presses = tarvik::Random(5); presses >= 0; --presses)
        PostMessageW(owner, WM_KEYDOWN, kKeys[tarvik::Random(5)], 0);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    return tarvik::RunWalks(argc, argv, kActs, OnPerson);
}
