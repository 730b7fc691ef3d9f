#include "plugins/fileio/open_mode.h"

#include <cwctype>

namespace tarvik {

OpenMode ParseOpenMode(std::wstring_view letters) {
    OpenMode mode = {0, OPEN_EXISTING};
    for (const wchar_t letter : letters) {
        switch (std::towlower(letter)) {
            case L'r':
                mode.access |= GENERIC_READ;
                break;
            case L'w':
                mode.access |= GENERIC_WRITE;
                break;
            case L'c':
                mode.disposition = CREATE_ALWAYS;
                break;
            case L'e':
                mode.disposition = OPEN_EXISTING;
                break;
            case L'n':
                mode.disposition = CREATE_NEW;
                break;
            case L'o':
                mode.disposition = OPEN_ALWAYS;
                break;
            default:
                break;
        }
    }
    return mode;
}

}  // namespace tarvik
