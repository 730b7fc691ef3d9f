#pragma once

#include <windows.h>

#include <vector>

namespace tarvik {

// Window properties, by which other processes find a window: the property's name is the claimed name or the
// identifier, its data distinguishes the two.
enum class WindowProperty : ULONG_PTR {
    kOwnsName = 0x10101,
    kReceives = 0x10102,
};

// False if the system rejects the name because it is empty or too long.
bool SetWindowProperty(HWND window, const wchar_t* name, WindowProperty property);
bool HasWindowProperty(HWND window, const wchar_t* name, WindowProperty property);

// The windows of all processes on the desktop, in the system's order.
std::vector<HWND> TopLevelWindows();

}  // namespace tarvik
