#pragma once

#include <windows.h>
#include <guiddef.h>

// Commands that a document sends to its host and that no published header declares.
namespace tarvik {

// CGID_DocHostCommandHandler, which the libraries of some SDKs lack.
inline constexpr GUID kDocHostCommands = {
    0xF38BC242, 0xB950, 0x11D1, {0x89, 0x18, 0x00, 0xC0, 0x4F, 0xC2, 0xC8, 0x36}};
inline constexpr DWORD kShowScriptError = 40;  // OLECMDID_SHOWSCRIPTERROR

// Commands of a page to its host beyond the published ones.
inline constexpr GUID kPageCommands = {
    0x5B0F6F5E, 0x2C4D, 0x4E0B, {0x9D, 0x3A, 0x61, 0x7E, 0x8F, 0x2B, 0xC4, 0x19}};
inline constexpr DWORD kEndProgram = 1;  // the user's choice, because the page does not respond

}  // namespace tarvik
