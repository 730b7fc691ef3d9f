#include "tests/support/debug_channel.h"

#include <windows.h>

#include <atomic>

namespace tarvik {

namespace {

// OutputDebugString raises this exception for a debugger, with the text in the system's code page.
constexpr DWORD kNarrowText = 0x40010006;  // DBG_PRINTEXCEPTION_C

std::atomic<DebugChannel*> listening = nullptr;

LONG CALLBACK Listen(EXCEPTION_POINTERS* pointers) {
    const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
    DebugChannel* const channel = listening;
    if (record.ExceptionCode != kNarrowText || !channel) return EXCEPTION_CONTINUE_SEARCH;
    // The length includes the terminator.
    channel->Add(
        {reinterpret_cast<const char*>(record.ExceptionInformation[1]), record.ExceptionInformation[0] - 1});
    return EXCEPTION_CONTINUE_EXECUTION;
}

}  // namespace

DebugChannel::DebugChannel() : handler_(AddVectoredExceptionHandler(TRUE, Listen)) {
    listening = this;
}

DebugChannel::~DebugChannel() {
    listening = nullptr;
    RemoveVectoredExceptionHandler(handler_);
}

}  // namespace tarvik
