#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "page_control/engine/devtools.h"
#include "page_control/engine/engine_pages.h"
#include "page_control/engine/message_queue.h"
#include "page_control/engine/message_reader.h"
#include "page_control/engine/transport.h"

namespace tarvik {

// DevTools over a transport.
class Connection : public DevTools {
  public:
    // `filter` is that of the program's message loop, or empty.
    explicit Connection(std::unique_ptr<Transport> transport, MessageFilter filter = nullptr);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void Post(std::string_view session, std::string_view method, Parameters params,
              ReplyHandler onReply) override;
    void Batch(const std::function<void()>& posts) override;
    Json Call(std::string_view session, std::string_view method, Parameters params, DWORD timeout) override;
    void Listen(std::string_view session, EventHandler handler) override;
    void ListenToFrames(std::string_view session, FrameHandler handler) override {
        reader_.ListenToFrames(session, std::move(handler));
    }
    bool WaitUntil(const std::function<bool()>& condition, DWORD timeout) override;
    bool IsWaiting() const override { return depth_ > 0; }
    bool IsOpen() const override { return open_; }
    const std::string& UserAgent() const override { return pages_.UserAgent(); }
    const std::wstring& DownloadFolder() const override { return transport_->DownloadFolder(); }
    std::string OpenPage() override { return pages_.Open(); }
    void OpenPage(OpenHandler handler) override { pages_.Open(std::move(handler)); }
    void ClosePage(const std::string& id) override { pages_.Close(id); }

    // Waits until the engine replies, and finds its first page.
    void Handshake() { pages_.Start(); }

    // Ends the engine, which stores what pages have written, and waits for its end.
    void End();

    // Ends the engine immediately, and removes a temporary profile.
    void Kill() { transport_->Kill(); }

  private:
    void Send(std::string_view message);
    void Deliver();
    void DeliverMessage(const Json& message);
    void DeliverReply(int id, const Json& message);
    void DeliverEnd();
    bool Wait(const bool& alive, const std::function<bool()>& condition, DWORD timeout);
    bool WaitForMessages(DWORD timeout);
    bool PumpMessages() const;

    const std::unique_ptr<Transport> transport_;
    const MessageFilter filter_;
    bool open_ = true;
    std::optional<std::string> batch_;  // messages of the batch in progress
    std::atomic<int> lastId_{0};
    std::unordered_map<int, ReplyHandler> replies_;
    std::map<std::string, EventHandler, std::less<>> listeners_;
    int depth_ = 0;                 // of nested waits
    ULONGLONG callsOnlyUntil_ = 0;  // in ticks; from then on waits pump window messages, too
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    MessageQueue queue_;
    EnginePages pages_;
    MessageReader reader_;  // last: its thread uses the other members
};

}  // namespace tarvik
