// start_time PROGRAM FOLDER [RUNS]: measures the time from the start of the program to the first line that
// its page logs, and to the end of the program, which the page quits immediately. This program is the
// debugger that gets the lines.

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "tarvik/owners.h"
#include "tarvik/status.h"

namespace tarvik {
namespace {

using Clock = std::chrono::steady_clock;

struct Times {
    double firstLine = 0;
    double end = 0;
};

double Since(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

Times StartOnce(const std::wstring& program, const std::wstring& folder) {
    std::wstring line = L"\"" + program + L"\" -d \"" + folder + L"\"";
    STARTUPINFOW startup = {sizeof startup};
    PROCESS_INFORMATION started = {};
    const auto start = Clock::now();
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, DEBUG_ONLY_THIS_PROCESS, nullptr,
                        nullptr, &startup, &started)) {
        ThrowLastError();
    }
    const UniqueHandle process(started.hProcess), thread(started.hThread);
    Times times;
    DEBUG_EVENT event = {};
    while (WaitForDebugEvent(&event, INFINITE)) {
        const bool isLine = event.dwDebugEventCode == OUTPUT_DEBUG_STRING_EVENT;
        const bool isException = event.dwDebugEventCode == EXCEPTION_DEBUG_EVENT;
        const bool isEnd = event.dwDebugEventCode == EXIT_PROCESS_DEBUG_EVENT;
        if (isLine && times.firstLine == 0) times.firstLine = Since(start);
        if (isEnd) times.end = Since(start);
        ContinueDebugEvent(event.dwProcessId, event.dwThreadId,
                           isException && times.firstLine > 0 ? DBG_EXCEPTION_NOT_HANDLED : DBG_CONTINUE);
        if (isEnd) break;
    }
    return times;
}

void Print(const char* name, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    std::printf("%-44s %8.0f %8.0f %8.0f\n", name, times.front(), times[times.size() / 2], times.back());
}

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) return std::printf("usage: start_time PROGRAM FOLDER [RUNS]\n"), 2;
    const int runs = argc > 3 ? _wtoi(argv[3]) : 7;
    std::vector<double> lines, ends;
    for (int i = 0; i <= runs; ++i) {
        const tarvik::Times times = tarvik::StartOnce(argv[1], argv[2]);
        if (times.firstLine == 0) return std::printf("the page logged nothing\n"), 1;
        if (i == 0) continue;  // the first one warms the caches
        lines.push_back(times.firstLine);
        ends.push_back(times.end);
    }
    std::printf("%-44s %8s %8s %8s  (ms, %d runs)\n", "start of the program", "min", "median", "max", runs);
    tarvik::Print("to the first line of the page's script", lines);
    tarvik::Print("to the end of a page that quits when loaded", ends);
    return 0;
}
