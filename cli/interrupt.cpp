#include "cli/interrupt.h"

#include "tarvik/owners.h"
#include "cli/failure.h"

namespace tarvik {

namespace {

// On a thread of the system's. A program whose console goes ends with the handler's return, but no sooner.
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

bool Interrupt::IsWished() {
    return WaitForSingleObject(Event(), 0) == WAIT_OBJECT_0;
}

void Interrupt::Check() {
    if (IsWished()) throw Failure(L"Interrupted.");
}

}  // namespace tarvik
