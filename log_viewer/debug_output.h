#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "base/owners.h"
#include "tarvik/owners.h"

namespace tarvik {

// A message of a program, in the system's code page. A text of more than 4,091 bytes arrives as several
// messages.
struct DebugMessage {
    DWORD process;
    std::string text;
};

// The reading end of the debugger's channel (OutputDebugString). A session has one; while it is open, every
// program that writes waits for the reader.
class DebugOutput {
  public:
    // Empty if another program is already reading. Throws the status of a failure.
    static std::optional<DebugOutput> Open();

    HANDLE Ready() const { return dataReady_.Get(); }  // signalled when there is a message
    DebugMessage Take();                               // call once for each signal

  private:
    explicit DebugOutput(UniqueHandle mapping);

    UniqueHandle mapping_;
    UniqueView view_;
    UniqueHandle bufferFree_;
    UniqueHandle dataReady_;
};

}  // namespace tarvik
