#pragma once

#include <windows.h>

#include <vector>

namespace tarvik {

// How a window tells other processes of a name: by a property with that name, whose data says what it means.
// A mark goes with its window.
enum class WindowMark : ULONG_PTR {
    kOwnsName = 0x10101,
    kReceives = 0x10102,
};

// False if the system refuses the name, which may be empty or too long.
bool SetMark(HWND window, const wchar_t* name, WindowMark mark);
bool HasMark(HWND window, const wchar_t* name, WindowMark mark);

// The windows of all processes on the desktop, in the system's order.
std::vector<HWND> TopLevelWindows();

}  // namespace tarvik
