#include "tests/support/watchdog.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>

namespace tarvik {

namespace {

constexpr auto kLimit = std::chrono::seconds(100);

std::atomic<long long> startedAt{0};
std::string* runningTest = new std::string;  // outlives the detached thread

long long Now() {
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

class Watch : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& info) override {
        *runningTest = std::string(info.test_suite_name()) + "." + info.name();
        startedAt = Now();
    }
    void OnTestEnd(const testing::TestInfo&) override { startedAt = 0; }
};

void Guard() {
    for (;;) {
        std::this_thread::sleep_for(std::chrono::seconds(1));
        const long long since = startedAt;
        if (!since || std::chrono::steady_clock::duration(Now() - since) < kLimit) continue;
        std::fprintf(stderr, "\nThe test %s hangs.\n", runningTest->c_str());
        std::fflush(stderr);
        TerminateProcess(GetCurrentProcess(), kHungStatus);
    }
}

}  // namespace

void StartWatchdog() {
    testing::UnitTest::GetInstance()->listeners().Append(new Watch);
    std::thread(Guard).detach();
}

}  // namespace tarvik
