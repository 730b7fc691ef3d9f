#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace tarvik {

using Json = nlohmann::json;

// The connection of this process to its browser engine, over the DevTools protocol. One engine and one
// connection serve all page controls; the first user starts it and the last one that lets go ends it. Main
// thread only: a reader thread queues what comes in, and it is delivered here, by the message loop or while a
// wait is under way.
class DevTools {
  public:
    // Joins the running engine or starts one. Throws StatusError when there is none to be had; LastStartError
    // then tells a person why, in a sentence or two.
    static std::shared_ptr<DevTools> Acquire();
    static std::wstring LastStartError();

    // Starts the engine's program in the background, once, for the first user soon after. Shutdown ends it if
    // no control came; at the program's end also if one is still there.
    static void Prelaunch();
    static void Shutdown();

    // A long wait stands in for the program's message loop, and queries this before it dispatches a message.
    // True takes the message. Null: none.
    using MessageFilter = bool (*)(MSG* message);
    static void SetMessageFilter(MessageFilter filter);

    virtual ~DevTools() = default;

    // Sends a command, and calls `onReply` with the reply's result, or with null after an error or the
    // engine's end. `session` is empty for the browser itself. Sending waits only for an engine that has
    // stopped reading, when there is no more room on the way to it.
    using ReplyHandler = std::function<void(const Json* result)>;
    virtual void Post(std::string_view session, std::string_view method, Json params,
                      ReplyHandler onReply = nullptr) = 0;

    // What is posted inside goes to the engine in one piece, which saves it a wake-up.
    virtual void Batch(const std::function<void()>& posts) = 0;

    // Sends a command and waits for its reply, serving other messages meanwhile. Throws StatusError: E_FAIL
    // for an error reply, RPC_E_DISCONNECTED when the engine ends, RPC_E_TIMEOUT.
    virtual Json Call(std::string_view session, std::string_view method, Json params = Json::object(),
                      DWORD timeout = 10000) = 0;

    // All events of a session go to one handler, on the main thread. Screencast frames do not come this way.
    // An empty handler ends it. The event "Inspector.disconnected" with no session id is made up at the
    // engine's end and goes to every handler.
    using EventHandler = std::function<void(std::string_view method, const Json& params)>;
    virtual void Listen(std::string_view session, EventHandler handler) = 0;

    // Frames of a session's screencast, acknowledged already, on the reader thread: the base64 text of the
    // picture, valid for the call. An empty handler ends it, and returns when no call is under way.
    using FrameHandler = std::function<void(std::string_view base64)>;
    virtual void ListenToFrames(std::string_view session, FrameHandler handler) = 0;

    // Serves DevTools messages and calls from other apartments until the condition holds. False when the
    // engine ended, the program was told to quit, or the time (milliseconds, INFINITE) is over first. May be
    // nested.
    virtual bool WaitUntil(const std::function<bool()>& condition, DWORD timeout) = 0;

    // Such a wait is under way: who runs a message loop now holds up everybody who waits.
    virtual bool IsWaiting() const = 0;

    virtual bool IsOpen() const = 0;

    // Opens a blank page in a window of its own; its target's id. Pages that nobody opened here, as a click
    // with a modifier key asks for, are closed at once.
    virtual std::string OpenPage() = 0;
    virtual void ClosePage(const std::string& id) = 0;
};

// One page of the engine, in a window of its own, with a flat session attached. Destruction closes it,
// without waiting.
class PageTarget {
  public:
    explicit PageTarget(std::shared_ptr<DevTools> devtools);
    PageTarget(const PageTarget&) = delete;
    PageTarget& operator=(const PageTarget&) = delete;
    ~PageTarget();

    const std::string& Session() const { return session_; }
    const std::string& Id() const { return id_; }
    DevTools& Engine() const { return *devtools_; }
    // For who waits while the target may go.
    std::shared_ptr<DevTools> SharedEngine() const { return devtools_; }

    void Post(std::string_view method, Json params = Json::object(),
              DevTools::ReplyHandler onReply = nullptr) {
        devtools_->Post(session_, method, std::move(params), std::move(onReply));
    }
    Json Call(std::string_view method, Json params = Json::object(), DWORD timeout = 10000) {
        // The target, and with it the engine, may go meanwhile.
        const auto engine = devtools_;
        return engine->Call(session_, method, std::move(params), timeout);
    }

  private:
    std::shared_ptr<DevTools> devtools_;
    std::string id_;
    std::string session_;
};

}  // namespace tarvik
