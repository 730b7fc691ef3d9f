#pragma once

#include <windows.h>
#include <unknwn.h>

#include <vector>

#include "tarvik/com_ptr.h"

// What a person sees of windows and does to them, and a page's script behind them.
namespace tarvik {

// The one that a page is drawn in.
HWND InnermostWindow(HWND window);

// At a point of the client area: of the window's own picture, whatever lies above it, and of the screen. The
// second is for windows of other processes, too.
COLORREF PixelOf(HWND window, POINT point);
COLORREF PixelOnScreen(HWND window, POINT point);
bool WaitForColour(HWND window, COLORREF colour);  // on the screen, in the middle of it

// Brings the window to the front and clicks into the middle of it.
void Click(HWND window);

// Moves the pointer until it is there and stays: under Wine an earlier place may come back.
void MovePointer(POINT screen);

// Presses the left button at one place of the screen and lets go at another, with moves in between.
void Drag(POINT from, POINT to);

// Presses keys one after the other, and lets go of them from the last to the first. They go to whatever has
// the focus.
void PressKeys(const std::vector<WORD>& keys);

// Input by itself, and for SendInput. The pointer goes to a point of the screen.
void Send(INPUT input);
INPUT MouseInputOf(DWORD action, DWORD data = 0);
INPUT MoveOf(POINT screen);

// The global object of the page in a web browser control.
ComPtr<IDispatch> ScriptOf(IUnknown* control);

}  // namespace tarvik
