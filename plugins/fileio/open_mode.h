#pragma once

#include <windows.h>

#include <string_view>

namespace tarvik {

struct OpenMode {
    DWORD access;
    DWORD disposition;
};

// Letters in any case: r and w add access; the last of c, e, n and o selects the disposition (CREATE_ALWAYS,
// OPEN_EXISTING, CREATE_NEW, OPEN_ALWAYS), which is OPEN_EXISTING by default. Other characters are ignored.
OpenMode ParseOpenMode(std::wstring_view letters);

}  // namespace tarvik
