#pragma once

#include <windows.h>

#include "tarvik/plugin.h"
#include "tarvik/script_object.h"
#include "tarvik/variant.h"

namespace tarvik {

// Lets the user select a folder. Returns its path; null if the user cancels or the folder is virtual.
Variant ShowFolderDialog(HWND owner, TVK::ICore* core, const ScriptObject& options);

}  // namespace tarvik
