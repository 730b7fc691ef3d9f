#include "archive/file_time.h"

namespace tarvik {

namespace {

constexpr long long kSecondsFrom1601To1970 = 11'644'473'600;
constexpr long long kTicksPerSecond = 10'000'000;

}  // namespace

FILETIME ToFileTime(std::time_t seconds) {
    ULARGE_INTEGER ticks;
    ticks.QuadPart = static_cast<ULONGLONG>((seconds + kSecondsFrom1601To1970) * kTicksPerSecond);
    return {ticks.LowPart, ticks.HighPart};
}

std::time_t ToSeconds(const FILETIME& time) {
    const ULARGE_INTEGER ticks = {{time.dwLowDateTime, time.dwHighDateTime}};
    return static_cast<std::time_t>(ticks.QuadPart / kTicksPerSecond) - kSecondsFrom1601To1970;
}

}  // namespace tarvik
