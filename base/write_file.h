#pragma once

#include <windows.h>

namespace tarvik {

// Writes all of the bytes at the file's pointer. The system may take a part of them and call that a success,
// so it is asked until nothing is left; throws the status of what fails then.
void WriteAll(HANDLE file, const void* bytes, size_t count);

}  // namespace tarvik
