#pragma once

#include <windows.h>

#include "app/unpack_folder.h"

namespace tarvik {

// Whether there is anything to unpack.
bool HasAttachedArchive();

// Unpacks the archive attached to the executable into a new temporary folder and makes that the current one.
// The thread must be in the multi-threaded apartment; it waits without pumping messages. When this fails, no
// folder is left.
HRESULT SelfUnpack(UnpackFolder& folder);

// Leaves an unpacked folder and removes it, if there is one. What is still in use stays behind, with no
// report.
void RemoveUnpacked(UnpackFolder& folder);

}  // namespace tarvik
