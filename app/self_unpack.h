#pragma once

#include <windows.h>

#include "app/unpack_folder.h"

namespace tarvik {

// Whether an archive is attached to the executable.
bool HasAttachedArchive();

// Unpacks the archive attached to the executable into a new temporary folder and makes it the current folder.
// The calling thread must be in the multi-threaded apartment, because it waits without pumping messages. A
// failure leaves no folder behind.
HRESULT SelfUnpack(UnpackFolder& folder);

// Leaves and removes the unpacked folder, if there is one. Leaves files in use behind without reporting it.
void RemoveUnpacked(UnpackFolder& folder);

}  // namespace tarvik
