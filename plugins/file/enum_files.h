#pragma once

#include <windows.h>

#include "tarvik/script_object.h"

namespace tarvik {

// Walks a folder on a worker thread: calls callback(path, attributes, size) for each file and folder until it
// returns false, then completed(). If either function is missing, nothing starts. Returns the system's error
// if no thread can be started; other failures may be thrown.
HRESULT StartEnumFiles(const ScriptObject& options);

}  // namespace tarvik
