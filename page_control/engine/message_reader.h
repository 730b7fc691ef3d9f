#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "page_control/engine/devtools.h"
#include "page_control/engine/message_parser.h"
#include "page_control/engine/message_queue.h"
#include "page_control/engine/transport.h"
#include "tarvik/owners.h"

namespace tarvik {

// Reads the engine's messages on its own thread. Passes on the frames of screencasts immediately and queues
// the other messages for the main thread.
class MessageReader {
  public:
    // `nextId` returns the id of a new command; it is called on the thread.
    MessageReader(Transport& transport, MessageQueue& queue, std::function<int()> nextId);
    // After the end of the transport.
    ~MessageReader();
    MessageReader(const MessageReader&) = delete;
    MessageReader& operator=(const MessageReader&) = delete;

    // See DevTools.
    void ListenToFrames(std::string_view session, DevTools::FrameHandler handler);

    // False if the engine's messages do not end in time.
    bool WaitForEnd(DWORD timeout) const {
        return WaitForSingleObject(ended_.Get(), timeout) == WAIT_OBJECT_0;
    }

  private:
    static constexpr DWORD kReadSize = 256 * 1024;

    void Run();
    bool Handle(std::string_view text);
    void HandleFrame(const ScreencastFrame& frame);

    Transport& transport_;
    MessageQueue& queue_;
    const std::function<int()> nextId_;
    std::mutex framesLock_;  // held during the call of a handler
    std::map<std::string, DevTools::FrameHandler, std::less<>> frameHandlers_;
    UniqueHandle ended_;  // event
    std::thread thread_;
};

}  // namespace tarvik
