#pragma once

#include <windows.h>

namespace tarvik {

// Writes all bytes at the file pointer. One call of WriteFile may succeed and write only a part, so this
// repeats it. Throws StatusError.
void WriteAll(HANDLE file, const void* bytes, size_t count);

}  // namespace tarvik
