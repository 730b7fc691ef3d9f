#include "tests/support/waiting.h"

#include <windows.h>
#include <objbase.h>

#include <atomic>
#include <thread>

#include <gtest/gtest.h>

namespace tarvik {

void PumpOnce() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool PumpUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        MsgWaitForMultipleObjectsEx(0, nullptr, 10, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        PumpOnce();
    }
    return true;
}

bool WaitFor(const std::function<bool()>& condition, unsigned long limit) {
    const ULONGLONG end = GetTickCount64() + limit;
    while (!condition()) {
        if (GetTickCount64() > end) return false;
        Sleep(10);
    }
    return true;
}

void OnWorker(const std::function<void()>& work) {
    std::atomic<bool> done = false;
    std::thread worker([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        work();
        CoUninitialize();
        done = true;
    });
    EXPECT_TRUE(PumpUntil([&] { return done.load(); }));
    worker.join();
}

}  // namespace tarvik
