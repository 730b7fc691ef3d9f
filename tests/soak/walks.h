#pragma once

#include <windows.h>

// Walks at random through what pages do. In two windows side by side the same page does one thing after the
// other, also inside of its callbacks and while native code waits for it.
namespace tarvik {

// From 0 to below.
int Random(int below);

// What others do to a window, at any moment.
void Strike(HWND window);

// The program `NAME [walks [seed]]`. `acts` is script: it makes what the page needs, and the list `acts` of
// what it may do. It finds there: w, the window; walk.random(below); any(list), coin(); handler(), a function
// or false; walk.strike() and walk.send(message, first, second), which others do to the window. `person` is
// called all the time, to answer what waits for somebody. Fails when a page no longer goes on, and when more
// of anything is left than after the first few walks.
int RunWalks(int argc, wchar_t** argv, const char* acts, TIMERPROC person);

}  // namespace tarvik
