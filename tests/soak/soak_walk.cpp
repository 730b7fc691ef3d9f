// A walk at random through what a page does with its window: `soak_walk [walks [seed]]`. Pages set callbacks
// and take them away, raise events, send messages to each other, ask people, navigate, close and quit.

#include <windows.h>

#include <iterator>
#include <string_view>

#include "tests/soak/walks.h"

namespace {

constexpr const char* kActs = R"page(
  var msg = w.msg;
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
  msg.uniqueID = 'walk';
)page";

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

}  // namespace

int wmain(int argc, wchar_t** argv) {
    return tarvik::RunWalks(argc, argv, kActs, OnPerson);
}
