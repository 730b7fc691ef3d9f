#pragma once

#include <windows.h>

namespace tarvik {

enum LogFlags : DWORD {
    kLogTrace = 1,  // calls of members, mostly without a message
    kLogError = 16,
    kLogToFile = 0x1000,  // to Logger::file instead of the debugger's channel
    kLogTimeStamp = 0x2000,
};

// A line is written if its level shares a bit with `flags`.
struct Logger {
    DWORD flags;
    HANDLE file;  // not owned; gets UTF-16 without a byte order mark
};

// The log of the process. Nothing changes it at run time: a diagnostic build sets the initial `flags`.
extern Logger processLog;

// Writes a line if its level is enabled. `format` is a wide printf format, or null for a line without a
// message. Any thread; never fails.
void Log(const Logger& logger, DWORD level, int line, const char* label, const wchar_t* format, ...) noexcept;

}  // namespace tarvik

// The arguments after the label are the format and its values, or nothing.
#define TARVIK_LOG_AT(level, label, format, ...) \
    ::tarvik::Log(::tarvik::processLog, level, __LINE__, label, format __VA_OPT__(, ) __VA_ARGS__)
#define TARVIK_TRACE(label) TARVIK_LOG_AT(::tarvik::kLogTrace, label, nullptr)
#define TARVIK_TRACE_TEXT(label, ...) TARVIK_LOG_AT(::tarvik::kLogTrace, label, __VA_ARGS__)
#define TARVIK_ERROR(label, ...) TARVIK_LOG_AT(::tarvik::kLogError, label, __VA_ARGS__)
