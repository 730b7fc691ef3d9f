#pragma once

#include <windows.h>

#include <string_view>

namespace tarvik {

struct OpenMode {
    DWORD access;
    DWORD disposition;
};

// Letters of any case: r and w add a right; c, e, n and o say what happens to a file that is there or is not
// (CREATE_ALWAYS, OPEN_EXISTING, CREATE_NEW, OPEN_ALWAYS), the last of them holds, and OPEN_EXISTING without
// one. Other letters mean nothing.
OpenMode ParseOpenMode(std::wstring_view letters);

}  // namespace tarvik
