#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "tarvik/owners.h"

namespace tarvik {

// The two pipes to a running engine. Messages end with a NUL. Closing the pipe is what ends the engine.
class Transport {
  public:
    // `isStarting`: whether an end before the first byte only means that nobody writes yet.
    Transport(UniqueHandle fromEngine, UniqueHandle toEngine, std::function<bool()> isStarting = nullptr)
        : fromEngine_(std::move(fromEngine)),
          toEngine_(std::move(toEngine)),
          isStarting_(std::move(isStarting)) {}
    virtual ~Transport() = default;

    // Any thread. False when the engine is gone.
    bool Write(std::string_view message);

    // Waits for bytes; 0 at the engine's end.
    DWORD Read(char* buffer, DWORD size);

    // The engine sees the end of its input, and ends.
    void CloseWriting();

    // Ends an engine that does not see it.
    virtual void Kill() = 0;

  private:
    UniqueHandle fromEngine_;
    UniqueHandle toEngine_;
    std::function<bool()> isStarting_;  // empty from the first byte on
    std::mutex writing_;
};

// Start the engine with a private profile that goes when it ends. When this process is killed it goes too; on
// Windows, with the next start. They throw StatusError. The pipe is open when they return; the engine may
// still be starting.
std::unique_ptr<Transport> StartThroughFifos(const std::wstring& engine);  // under Wine
std::unique_ptr<Transport> StartThroughPipes(const std::wstring& engine);  // on Windows

}  // namespace tarvik
