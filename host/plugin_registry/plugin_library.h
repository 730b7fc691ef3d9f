#pragma once

#include <windows.h>

#include <string>

// Plug-in libraries. They stay loaded until the process ends. Main-thread data.
namespace tarvik {

// Registers the plug-in of a library. A file that is no image, or one for a 32-bit machine, gives E_FAIL; a
// library that is refused later (no export, a descriptor that fails or is of another kind) is freed and gives
// S_OK; that is intended.
HRESULT LoadPluginLibrary(const std::wstring& path);

bool HasPluginLibraries();

// In load order. Only at the very end: objects of theirs may still exist before.
void FreePluginLibraries();

}  // namespace tarvik
