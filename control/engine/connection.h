#pragma once

#include <algorithm>
#include <atomic>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <thread>
#include <unordered_map>

#include "tarvik/owners.h"
#include "control/engine/devtools.h"
#include "control/engine/transport.h"

namespace tarvik {

// DevTools over a transport. The reader thread splits and parses what comes, passes frames on at once, and
// queues the rest for the main thread, which it wakes by an event (a wait is under way) and by a posted
// message (it is idle).
class Connection : public DevTools {
  public:
    explicit Connection(std::unique_ptr<Transport> transport);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void Post(std::string_view session, std::string_view method, Json params, ReplyHandler onReply) override;
    void Batch(const std::function<void()>& posts) override;
    Json Call(std::string_view session, std::string_view method, Json params, DWORD timeout) override;
    void Listen(std::string_view session, EventHandler handler) override;
    void ListenToFrames(std::string_view session, FrameHandler handler) override;
    bool WaitUntil(const std::function<bool()>& condition, DWORD timeout) override;
    bool IsWaiting() const override { return depth_ > 0; }
    bool IsOpen() const override { return open_; }

    std::string OpenPage() override;
    void ClosePage(const std::string& id) override;

    // Ends the engine at once.
    void Kill() { transport_->Kill(); }

    // Waits until the engine answers, and finds its first page.
    void Handshake();

  private:
    static constexpr UINT kArrived = WM_APP;
    static constexpr UINT_PTR kCloseTimer = 1;

    // Reader thread
    void ReadMessages();
    bool Receive(std::string_view message);
    void ReceiveFrame(std::string_view message);
    void Queue(std::optional<Json> message);
    void PostArrival();  // with the queue's lock held; any thread

    // Main thread
    void Send(std::string_view message);
    void OnBrowserEvent(std::string_view method, const Json& params);
    void CloseUnknown();
    void CloseAgain();
    void PostClose(const std::string& id);
    void Deliver();
    void DeliverOne(const Json& message);
    void DeliverEnd();
    bool Wait(const bool& alive, const std::function<bool()>& condition, DWORD timeout);
    bool WaitForMore(DWORD timeout, bool patient);
    void OnMessage(UINT message, WPARAM wParam);
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    std::unique_ptr<Transport> transport_;
    bool open_ = true;
    std::string firstPage_;          // that the engine started with, while nobody uses it
    std::set<std::string> pages_;    // opened here
    std::set<std::string> closing_;  // asked to close, and still there
    std::set<std::string> unknown_;  // made while a page was being opened, which it may be
    int opening_ = 0;
    std::optional<std::string> together_;  // messages that wait for those posted with them
    std::atomic<int> lastId_{0};
    std::unordered_map<int, ReplyHandler> replies_;
    std::map<std::string, EventHandler, std::less<>> listeners_;

    int depth_ = 0;  // of waits inside one another
    ULONGLONG reducedServiceUntil_ = 0;

    std::mutex queueLock_;
    std::deque<std::optional<Json>> queue_;  // an empty one is the engine's end
    UniqueHandle arrived_;
    bool posted_ = false;  // a message about it is on its way to the window
    ULONGLONG postedAt_ = 0;
    int waits_ = 0;       // that are under way, one inside the other
    UniqueHandle ended_;  // the reader thread is through

    std::mutex framesLock_;  // held while a frame is passed on
    std::map<std::string, FrameHandler, std::less<>> frameHandlers_;

    UniqueWindow window_;  // message-only
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    std::thread reader_;
};

}  // namespace tarvik
