#pragma once

#include <windows.h>

#include "app/unpack_folder.h"

namespace tarvik {

// Whether an archive is attached to the executable.
bool HasAttachedArchive();

// Unpacks the archive attached to the executable into a new temporary folder and makes that the current one.
// The thread must be in the multi-threaded apartment; it waits without pumping messages. After a failure
// there is no folder.
HRESULT SelfUnpack(UnpackFolder& folder);

// Leaves and removes the unpacked folder, if there is one. Files in use stay behind; that is not reported.
void RemoveUnpacked(UnpackFolder& folder);

}  // namespace tarvik
