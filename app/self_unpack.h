#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// Whether there is anything to unpack.
bool HasAttachedArchive();

// Unpacks the archive attached to the executable into a new temporary folder and makes that the current one.
// The thread must be in the multi-threaded apartment; it waits without pumping messages. `folder` receives
// the folder's name once it was made, and keeps it when the rest fails, although the folder is then gone.
HRESULT SelfUnpack(std::wstring& folder);

// Leaves an unpacked folder and removes it, if there is one. What is still in use stays behind, with no
// report.
void RemoveUnpacked(const std::wstring& folder);

}  // namespace tarvik
