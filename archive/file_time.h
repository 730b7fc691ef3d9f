#pragma once

#include <windows.h>

#include <ctime>

namespace tarvik {

// Conversions between seconds since 1970 and FILETIME, which counts 100-nanosecond steps since 1601.
FILETIME ToFileTime(std::time_t seconds);
std::time_t ToSeconds(const FILETIME& time);

}  // namespace tarvik
