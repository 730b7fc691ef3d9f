#pragma once

#include <windows.h>
#include <unknwn.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tarvik/com_ptr.h"

// Finds windows, reads their pixels and sends input as a user does.
namespace tarvik {

// The top-level windows of a process that have this class.
std::vector<HWND> TopWindows(const wchar_t* className, DWORD process = GetCurrentProcessId());

// The text of a window or control; empty if its program does not respond.
std::wstring TextOf(HWND window);

// The innermost first child of a window, in which a page is drawn.
HWND InnermostWindow(HWND window);

// The colour at a point of the client area: in the window itself, even if another window covers it.
COLORREF PixelOf(HWND window, POINT point);
// The same on the screen; also for windows of other processes.
COLORREF PixelOnScreen(HWND window, POINT point);
// The first pixel of the client area that has the colour on the screen, in coordinates of the screen.
std::optional<POINT> FindColour(HWND window, COLORREF colour);
// Waits until the middle of the window has the colour on the screen.
bool WaitForColour(HWND window, COLORREF colour);

// Moves the pointer to a point of the screen until it stays there: under Wine an earlier position may return.
void MovePointer(POINT screen);

// Moves the pointer to a point of the screen and clicks there, once or several times.
void ClickAt(POINT screen, DWORD press = MOUSEEVENTF_LEFTDOWN, int times = 1);
// Brings the window to the front and clicks in the middle of it.
void Click(HWND window);

// Presses the left button at a point of the screen, waits for the effect of the press, moves the pointer to
// the other point, waits for the effect of the move, and releases the button. False if an effect does not
// occur.
bool Drag(POINT from, POINT to, const std::function<bool()>& isPressed,
          const std::function<bool()>& hasArrived);

// Whether the user moves or resizes the window.
bool IsInMoveLoop(HWND window);

// Presses keys in this order and releases them in reverse order. The window with the focus gets them.
void PressKeys(const std::vector<WORD>& keys);

// One input event, and events for SendInput; moves go to a point of the screen.
void Send(INPUT input);
INPUT MouseInputOf(DWORD action, DWORD data = 0);
INPUT MoveOf(POINT screen);

// The global object of the page in a web browser control.
ComPtr<IDispatch> ScriptOf(IUnknown* control);

}  // namespace tarvik
