#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

struct TaskbarVerb {
    UINT text;  // the id of the menu's text in the shell's resources
    const wchar_t* name;
};
inline constexpr TaskbarVerb kPinVerb = {5386, L"TaskbarPin"};
inline constexpr TaskbarVerb kUnpinVerb = {5387, L"TaskbarUnPin"};

// Invokes an item of a file's context menu. E_FAIL if the menu has no such item.
HRESULT DoTaskbarVerb(const TaskbarVerb& verb, const std::wstring& path);

// The same for any item, found by its text.
HRESULT DoVerbOfText(const std::wstring& path, const std::wstring& text);

}  // namespace tarvik
