#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>

#include "tarvik/com_ptr.h"

// Files that lead elsewhere. Failures are thrown or returned.
namespace tarvik {

struct Shortcut {
    std::wstring target;     // a path or a URL
    std::wstring arguments;  // for a program
    std::wstring icon;       // a file with icons; empty: that of the target
    LONG iconIndex = 0;
};

// A link to a file, which starts programs in their own folder. A path without the extension .lnk gets it.
HRESULT SaveLinkFile(const Shortcut& shortcut, const std::wstring& path);

// A link to a URL, with the extension .url.
HRESULT SaveUrlFile(const Shortcut& shortcut, const std::wstring& path);

// A script object with the `path` and the `args` of a link to a file.
ComPtr<IDispatch> ReadLinkFile(const std::wstring& path);

}  // namespace tarvik
