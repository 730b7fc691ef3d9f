#pragma once

#include <windows.h>

// The screen and the mouse, as a person has them.
namespace tarvik {

// What is seen at a point of a window's client area.
COLORREF ColourAt(HWND window, POINT point);
bool WaitForColour(HWND window, COLORREF colour);  // in the middle of it

// Presses the left button at one place of the screen and lets go at another, with moves in between.
void Drag(POINT from, POINT to);

// Brings the window to the front and clicks into the middle of it.
void Click(HWND window);

}  // namespace tarvik
