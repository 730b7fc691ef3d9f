#pragma once

#include <windows.h>

#include <string>

// Plug-in libraries. They stay loaded until the process ends. Main thread only.
namespace tarvik {

// Loads a library and registers its plug-in. E_FAIL if the file is not an image, or a 32-bit one. By design,
// S_OK for a library that is rejected later, because it has no export or its descriptor fails or has another
// kind; it is freed.
HRESULT LoadPluginLibrary(const std::wstring& path);

bool HasPluginLibraries();

// Frees the libraries in load order. Call it last: objects of the libraries may exist until then.
void FreePluginLibraries();

}  // namespace tarvik
