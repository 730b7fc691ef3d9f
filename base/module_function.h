#pragma once

#include <windows.h>

namespace tarvik {

// Finds a function that not every version of Windows exports; null if it is missing. The module stays loaded.
template <class Function>
Function* FindFunction(const wchar_t* module, const char* name) {
    const HMODULE library = LoadLibraryW(module);
    const FARPROC found = library ? GetProcAddress(library, name) : nullptr;
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

}  // namespace tarvik
