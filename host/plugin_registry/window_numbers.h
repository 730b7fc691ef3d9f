#pragma once

#include <windows.h>

#include <algorithm>
#include <functional>
#include <iterator>

// The numbers that built-in plug-ins use in the top-level window. Several plug-ins subclass it, so its
// messages, commands and hot keys each share one number space. In the page's window they use none: that
// window is the control's.
namespace tarvik {

// Private messages. Other processes send the first two, so their values are fixed.

// `window`: shows the window. LPARAM: a command for ShowWindow.
inline constexpr UINT kShowMessage = 3024;
// `window.msg`: delivers a message. WPARAM: the sender's process id; LPARAM: the size of its block in bytes.
inline constexpr UINT kBusMessage = 3025;
// `tray`: a mouse event of the icon. WPARAM: kTrayIconId; LPARAM: a mouse message.
inline constexpr UINT kTrayMessage = 4024;

inline constexpr UINT kPrivateMessages[] = {kShowMessage, kBusMessage, kTrayMessage};
static_assert(kPrivateMessages[0] >= WM_USER);
static_assert(std::ranges::adjacent_find(kPrivateMessages, std::ranges::greater_equal()) ==
                  std::end(kPrivateMessages),
              "in rising order, so that each number occurs once");

inline constexpr UINT kTrayIconId = 200;

// WM_COMMAND. Menus number their items from the first on; the menu bar of a window handles commands up to the
// last.
inline constexpr UINT kFirstMenuCommand = 2000;
inline constexpr UINT kLastMenuCommand = 3000;

// WM_HOTKEY. Each window numbers its hot keys from here on.
inline constexpr int kFirstHotKeyId = 1000;

}  // namespace tarvik
