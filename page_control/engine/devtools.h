#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "page_control/engine/event_router.h"
#include "page_control/engine/parameters.h"

namespace tarvik {

// A connection to a browser engine over the DevTools protocol. Main thread only: a reader thread queues
// incoming messages, which are delivered by the message loop or by a wait.
class DevTools {
  public:
    // The filter of the program's message loop, for which a long wait stands in. True if it has handled the
    // message.
    using MessageFilter = std::function<bool(MSG* message)>;

    virtual ~DevTools() = default;

    // Sends a command and calls `onReply` with the reply's result, or with null after an error or the
    // engine's end. `session` is empty for the browser itself. Blocks only if the engine has stopped reading
    // and the pipe is full.
    using ReplyHandler = std::function<void(const Json* result)>;
    virtual void Post(std::string_view session, std::string_view method, Parameters params,
                      ReplyHandler onReply = nullptr) = 0;

    // Sends the commands posted by the function in one write, which saves the engine a wake-up.
    virtual void Batch(const std::function<void()>& posts) = 0;

    // Sends a command and waits for its reply; serves other messages meanwhile. Throws StatusError: E_FAIL
    // for an error reply, RPC_E_DISCONNECTED at the engine's end, RPC_E_TIMEOUT.
    virtual Json Call(std::string_view session, std::string_view method, Parameters params = {},
                      DWORD timeout = 10000) = 0;

    // Sets the handler of all events of a session except screencast frames; an empty one removes it. At the
    // engine's end every handler receives a synthetic event "Inspector.disconnected".
    using EventHandler = std::function<void(std::string_view method, const Json& params)>;
    virtual void Listen(std::string_view session, EventHandler handler) = 0;

    // Sets the handler of a session's screencast frames; an empty one removes it, after the end of a call in
    // progress. It is called on the reader thread, before the acknowledgement, with the image in base64, and
    // returns false to stop the screencast.
    using FrameHandler = std::function<bool(std::string_view base64)>;
    virtual void ListenToFrames(std::string_view session, FrameHandler handler) = 0;

    // Serves DevTools messages and calls from other apartments until the condition holds. False if the engine
    // ends, the program is to quit, or the time (milliseconds, INFINITE) is over first. May be nested.
    virtual bool WaitUntil(const std::function<bool()>& condition, DWORD timeout) = 0;

    // Whether a wait is in progress, which a nested message loop would hold up.
    virtual bool IsWaiting() const = 0;

    virtual bool IsOpen() const = 0;

    // The engine's own user agent.
    virtual const std::string& UserAgent() const = 0;

    // Where the engine writes downloads, each as a file that is named by its id. The folder may not exist
    // yet; it vanishes with the engine.
    virtual const std::wstring& DownloadFolder() const = 0;

    // Opens a blank page in its own window and returns its target's id. Pages that are opened by other means,
    // like a click with a modifier key, are closed immediately.
    virtual std::string OpenPage() = 0;
    // The same without waiting; the id is empty after a failure.
    using OpenHandler = std::function<void(const std::string& id)>;
    virtual void OpenPage(OpenHandler handler) = 0;
    virtual void ClosePage(const std::string& id) = 0;
};

// Attaches a flat session to a target, for Target.detachFromTarget to end. Waits; throws StatusError.
std::string AttachSession(DevTools& engine, const std::string& targetId);

// A page of the engine in its own window, with a flat session attached. The destructor closes it without
// waiting.
class PageTarget {
  public:
    explicit PageTarget(std::shared_ptr<DevTools> devtools);
    // The same without waiting; the handler receives null after a failure.
    static void Open(std::shared_ptr<DevTools> devtools,
                     std::function<void(std::unique_ptr<PageTarget> target)> handler);
    PageTarget(const PageTarget&) = delete;
    PageTarget& operator=(const PageTarget&) = delete;
    ~PageTarget();

    const std::string& Session() const { return session_; }
    const std::string& Id() const { return id_; }
    DevTools& Engine() const { return *devtools_; }
    // The session's events.
    EventRouter& Events() const { return *events_; }
    // Keeps the engine during a wait that the target may not survive.
    std::shared_ptr<DevTools> EnginePointer() const { return devtools_; }

    void Post(std::string_view method, Parameters params = {}, DevTools::ReplyHandler onReply = nullptr) {
        devtools_->Post(session_, method, std::move(params), std::move(onReply));
    }
    Json Call(std::string_view method, Parameters params = {}, DWORD timeout = 10000) {
        // The target, and with it the engine, may be destroyed during the call.
        const auto engine = devtools_;
        return engine->Call(session_, method, std::move(params), timeout);
    }

  private:
    PageTarget(std::shared_ptr<DevTools> devtools, std::string id, std::string session);
    void Listen();

    std::shared_ptr<DevTools> devtools_;
    std::string id_;
    std::string session_;
    std::shared_ptr<EventRouter> events_ = std::make_shared<EventRouter>();
};

}  // namespace tarvik
