#pragma once

#include <windows.h>

#include <string>

#include "tarvik/plugin.h"
#include "tarvik/script_object.h"

// Options that the dialogs for files and folders share.
namespace tarvik {

// The owner window of a dialog: the thread's active window if `window` is null.
HWND DialogOwner(HWND window);

// The option initDir, resolved against the page; a URL stays unchanged. Empty if absent.
std::wstring InitialFolder(TVK::ICore* core, const ScriptObject& options);

}  // namespace tarvik
