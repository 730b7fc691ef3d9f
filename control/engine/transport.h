#pragma once

#include <windows.h>

#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "base/owners.h"

namespace tarvik {

// The two pipes to a running engine. Messages end with a NUL. Closing the pipe is what ends the engine.
class Transport {
  public:
    // `patience`: for how many milliseconds an end before the first byte only means that nobody writes yet.
    Transport(UniqueHandle fromEngine, UniqueHandle toEngine, DWORD patience = 0)
        : fromEngine_(std::move(fromEngine)),
          toEngine_(std::move(toEngine)),
          patientUntil_(GetTickCount64() + patience) {}
    virtual ~Transport() = default;

    // Any thread. False when the engine is gone.
    bool Write(std::string_view message);

    // Waits for bytes; 0 at the engine's end.
    DWORD Read(char* buffer, DWORD size);

    // The engine sees the end of its input, and ends.
    void CloseWriting();

  private:
    UniqueHandle fromEngine_;
    UniqueHandle toEngine_;
    ULONGLONG patientUntil_;
    std::mutex writing_;
};

// Start the engine with a private profile that goes when it ends, also when this process is killed. They
// throw StatusError. The pipe is open when they return; the engine may still be starting.
std::unique_ptr<Transport> StartThroughFifos(const std::wstring& engine);  // under Wine
std::unique_ptr<Transport> StartThroughPipes(const std::wstring& engine);  // on Windows

}  // namespace tarvik
