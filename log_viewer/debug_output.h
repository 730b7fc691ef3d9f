#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// What a program wrote, in the system's code page. A text longer than 4,091 bytes comes as several messages.
struct DebugMessage {
    DWORD process;
    std::string text;
};

// The reading end of the debugger's channel. A session has one: while it is open, programs wait for it with
// each text that they write.
class DebugOutput {
  public:
    // Nothing if somebody else reads already. Throws the status of what failed.
    static std::optional<DebugOutput> Open();

    HANDLE Ready() const { return dataReady_.Get(); }  // when a message is there
    DebugMessage Take();                               // once for each time that it was ready

  private:
    explicit DebugOutput(UniqueHandle mapping);

    UniqueHandle mapping_;
    UniqueView view_;
    UniqueHandle bufferFree_;
    UniqueHandle dataReady_;
};

}  // namespace tarvik
