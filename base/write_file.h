#pragma once

#include <windows.h>

namespace tarvik {

// Writes all bytes at the file pointer. WriteFile may succeed and write only some of them, so this calls it
// repeatedly. Throws StatusError.
void WriteAll(HANDLE file, const void* bytes, size_t count);

}  // namespace tarvik
