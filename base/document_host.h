#pragma once

#include <windows.h>
#include <guiddef.h>

// Commands that a document sends to its host and that no published header declares.
namespace tarvik {

// CGID_DocHostCommandHandler, which the libraries of some SDKs lack.
inline constexpr GUID kDocHostCommands = {
    0xF38BC242, 0xB950, 0x11D1, {0x89, 0x18, 0x00, 0xC0, 0x4F, 0xC2, 0xC8, 0x36}};
inline constexpr DWORD kShowScriptError = 40;  // OLECMDID_SHOWSCRIPTERROR

}  // namespace tarvik
