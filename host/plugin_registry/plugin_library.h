#pragma once

#include <windows.h>

#include <string>

// Plug-in libraries. They stay loaded until the process ends. Main thread only.
namespace tarvik {

// Loads a library and registers its plug-in. E_FAIL if the file is not an executable image, or a 32-bit one.
// By design, S_OK also for a library that has no export, or whose descriptor fails or has a wrong kind; such
// a library is freed.
HRESULT LoadPluginLibrary(const std::wstring& path);

bool HasPluginLibraries();

// Frees the libraries in load order. Call it last: objects of the libraries may exist until then.
void FreePluginLibraries();

}  // namespace tarvik
