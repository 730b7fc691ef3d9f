#include "cli/interrupt.h"

#include "cli/failure.h"
#include "tarvik/owners.h"

namespace tarvik {

namespace {

// Runs on a thread of the system's. If the console closes, returning from here ends the process.
BOOL WINAPI OnControl(DWORD event) {
    SetEvent(Interrupt::Event());
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
    return TRUE;
}

}  // namespace

Interrupt::Interrupt() {
    Event();
    SetConsoleCtrlHandler(OnControl, TRUE);
}

Interrupt::~Interrupt() {
    SetConsoleCtrlHandler(OnControl, FALSE);
}

HANDLE Interrupt::Event() {
    static const UniqueHandle event(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    return event.Get();
}

bool Interrupt::IsRequested() {
    return WaitForSingleObject(Event(), 0) == WAIT_OBJECT_0;
}

void Interrupt::ThrowIfRequested() {
    if (IsRequested()) throw Failure(L"Interrupted.");
}

}  // namespace tarvik
