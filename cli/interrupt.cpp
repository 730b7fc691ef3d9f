#include "cli/interrupt.h"

#include "cli/failure.h"
#include "tarvik/owners.h"

namespace tarvik {

namespace {

// Runs on a system thread. When the console or the session closes, returning would end the process before it
// has cleaned up.
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
