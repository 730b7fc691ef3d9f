#include "plugins/system/environment.h"

#include <windows.h>
#include <shlobj.h>

#include "base/path.h"

namespace tarvik {

namespace {

struct SpecialFolder {
    const wchar_t* variable;
    int folder;
    bool replace = true;
};

constexpr SpecialFolder kSpecialFolders[] = {
    {L"DESKTOP", CSIDL_DESKTOP},
    {L"STARTMENU", CSIDL_STARTMENU},
    {L"STARTUP", CSIDL_STARTUP},
    {L"PROGRAMS", CSIDL_PROGRAMS},
    {L"COMMON_DESKTOP", CSIDL_COMMON_DESKTOPDIRECTORY},
    {L"COMMON_STARTMENU", CSIDL_COMMON_STARTMENU},
    {L"COMMON_STARTUP", CSIDL_COMMON_STARTUP},
    {L"COMMON_PROGRAMS", CSIDL_COMMON_PROGRAMS},
    {L"LOCALAPPDATA", CSIDL_LOCAL_APPDATA, false},  // most systems set this variable
    {L"SENDTO", CSIDL_SENDTO},
    {L"MYDOCUMENTS", CSIDL_PERSONAL},
};

constexpr DWORD kTextLength = 520;  // with the terminator

bool Exists(const wchar_t* variable) {
    return GetEnvironmentVariableW(variable, nullptr, 0) != 0;
}

// If the text does not fit, the system may have written a part of it to the buffer.
Bstr TextOf(const wchar_t* buffer, DWORD lengthWithTerminator) {
    return Bstr(lengthWithTerminator <= kTextLength ? buffer : L"");
}

}  // namespace

void PublishSpecialFolders() {
    for (const SpecialFolder& known : kSpecialFolders) {
        if (!known.replace && Exists(known.variable)) continue;
        wchar_t path[kPathLength] = {};
        if (!SHGetSpecialFolderPathW(nullptr, path, known.folder, FALSE)) continue;
        SetEnvironmentVariableW(known.variable, path);
    }
}

std::optional<Bstr> EnvironmentVariable(const std::wstring& name) {
    wchar_t text[kTextLength] = {};
    const DWORD length = GetEnvironmentVariableW(name.c_str(), text, kTextLength);
    if (length == 0) return std::nullopt;
    return TextOf(text, length + 1);
}

std::optional<Bstr> ExpandEnvironment(const std::wstring& text) {
    wchar_t expanded[kTextLength] = {};
    const DWORD length = ExpandEnvironmentStringsW(text.c_str(), expanded, kTextLength);
    if (length == 0) return std::nullopt;
    return TextOf(expanded, length);
}

}  // namespace tarvik
