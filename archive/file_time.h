#pragma once

#include <windows.h>

#include <ctime>

namespace tarvik {

// Seconds since 1970 and the system's time of files, which counts from 1601 in steps of 100 nanoseconds.
FILETIME ToFileTime(std::time_t seconds);
std::time_t ToSeconds(const FILETIME& time);

}  // namespace tarvik
