#pragma once

#include <windows.h>

#include <string>

#include "tarvik/plugin.h"
#include "tarvik/options.h"

// What the dialogs for files and folders start from.
namespace tarvik {

// The window that a dialog belongs to; without one, the thread's active window.
HWND DialogOwner(HWND window);

// The option initDir, made absolute against the page; a URL stays as it is. Empty if it is absent.
std::wstring FirstFolder(TVK::ICore* core, const Options& options);

}  // namespace tarvik
