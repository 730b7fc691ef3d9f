#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

struct TaskbarVerb {
    UINT text;            // of the shell's menu, in the language of the system
    const wchar_t* name;  // of the verb itself
};
inline constexpr TaskbarVerb kPinVerb = {5386, L"TaskbarPin"};
inline constexpr TaskbarVerb kUnpinVerb = {5387, L"TaskbarUnPin"};

// Does with a file what a click on that entry of its menu would do. E_FAIL where the menu has no such entry.
HRESULT DoTaskbarVerb(const TaskbarVerb& verb, const std::wstring& path);

// The same for any entry, found by its text.
HRESULT DoVerbOfText(const std::wstring& path, const std::wstring& text);

}  // namespace tarvik
