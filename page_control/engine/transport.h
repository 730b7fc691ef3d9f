#pragma once

#include <windows.h>

#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "page_control/engine/message_trace.h"
#include "tarvik/owners.h"

namespace tarvik {

// The two pipes to a running engine. Messages end with a NUL. The engine ends when its input is closed.
class Transport {
  public:
    Transport(UniqueHandle fromEngine, UniqueHandle toEngine, std::wstring downloadFolder)
        : fromEngine_(std::move(fromEngine)),
          toEngine_(std::move(toEngine)),
          downloadFolder_(std::move(downloadFolder)) {}
    virtual ~Transport() = default;

    // Any thread. False if the engine has ended.
    bool Write(std::string_view message);

    // Waits for bytes. Returns their number; 0 at the engine's end.
    virtual DWORD Read(char* buffer, DWORD size);

    // Any thread. Closes the engine's input, which ends it.
    virtual void CloseWriting();

    // Ends an engine that does not react to the end of its input.
    virtual void Kill() = 0;

    // See DevTools.
    const std::wstring& DownloadFolder() const { return downloadFolder_; }

    MessageTrace& Trace() { return trace_; }

  private:
    UniqueHandle fromEngine_;
    UniqueHandle toEngine_;
    const std::wstring downloadFolder_;
    std::mutex writing_;
    MessageTrace trace_;
};

// Start the engine with the profile in a folder. Without one it gets a private profile, which is removed when
// the engine ends. If this process is killed, the engine ends too; on Windows the next start then removes the
// private profile. Throw StatusError. The pipes are open on return, but the engine may still be starting.
std::unique_ptr<Transport> StartThroughFifos(const std::wstring& engine,
                                             const std::wstring& profile);  // under Wine
std::unique_ptr<Transport> StartThroughPipes(const std::wstring& engine,
                                             const std::wstring& profile);  // on Windows

}  // namespace tarvik
