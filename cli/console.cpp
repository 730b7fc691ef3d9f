#include "cli/console.h"

#include <string>

#include "tarvik/text.h"

namespace tarvik {

const Console& Console::Out() {
    static const Console out(STD_OUTPUT_HANDLE);
    return out;
}

const Console& Console::Error() {
    static const Console error(STD_ERROR_HANDLE);
    return error;
}

Console::Console(DWORD standardHandle) : handle_(GetStdHandle(standardHandle)) {
    DWORD mode = 0;
    isConsole_ = GetConsoleMode(handle_, &mode) != FALSE;
}

bool Console::Write(std::wstring_view text) const {
    DWORD written = 0;
    if (isConsole_)
        return WriteConsoleW(handle_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    const std::string bytes = Narrow(text);
    return WriteFile(handle_, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace tarvik
