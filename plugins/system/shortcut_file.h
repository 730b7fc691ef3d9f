#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>

#include "tarvik/com_ptr.h"

// Shortcut files. Failures are thrown or returned.
namespace tarvik {

struct Shortcut {
    std::wstring target;     // a path or a URL
    std::wstring arguments;  // if the target is a program
    std::wstring icon;       // a file with icons; empty for the icon of the target
    LONG iconIndex = 0;
};

// Saves a link to a file. The link starts programs in their own folder. Appends the extension .lnk if it is
// missing.
HRESULT SaveLinkFile(const Shortcut& shortcut, const std::wstring& path);

// Saves a link to a URL. Appends the extension .url if it is missing.
HRESULT SaveUrlFile(const Shortcut& shortcut, const std::wstring& path);

// Returns a script object with the `path` and the `args` of a link to a file.
ComPtr<IDispatch> ReadLinkFile(const std::wstring& path);

}  // namespace tarvik
