#include "control/engine/connection.h"

#include <objbase.h>

#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr const wchar_t* kWindowClass = L"TarvikDevTools";
constexpr DWORD kEndTimeout = 2000;
// A wait longer than this serves all messages, so that a page that computes for ever does not freeze its
// window.
constexpr DWORD kReducedServiceTime = 2000;
constexpr DWORD kPollInterval = 50;

HWND MakeMessageWindow(WNDPROC procedure, void* object) {
    WNDCLASSEXW description = {sizeof description};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = kWindowClass;
    RegisterClassExW(&description);
    const HWND window = CreateWindowExW(0, kWindowClass, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                        description.hInstance, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(object));
    return window;
}

DevTools::MessageFilter messageFilter = nullptr;

// Does what the program's own loop would do. False when the program is to quit; then that loop gets WM_QUIT,
// too.
bool PumpAll() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        if (messageFilter && messageFilter(&message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

}  // namespace

void DevTools::SetMessageFilter(MessageFilter filter) {
    messageFilter = filter;
}

Connection::Connection(std::unique_ptr<Transport> transport)
    : transport_(std::move(transport)),
      arrived_(CreateEventW(nullptr, FALSE, FALSE, nullptr)),
      ended_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      window_(MakeMessageWindow(WindowProcedure, this)),
      reader_([this] { ReadMessages(); }) {}

Connection::~Connection() {
    *alive_ = false;
    // Asked to close, the engine ends in its own time; without its input it must.
    // One that has stopped reading would hold up who writes to it.
    std::thread closer([this] {
        if (open_) transport_->Write(R"({"id":0,"method":"Browser.close"})");
        WaitForSingleObject(ended_.Get(), kEndTimeout);
        transport_->CloseWriting();
    });
    if (WaitForSingleObject(ended_.Get(), 2 * kEndTimeout) != WAIT_OBJECT_0) transport_->Kill();
    closer.join();
    reader_.join();
}

void Connection::Post(std::string_view session, std::string_view method, Json params, ReplyHandler onReply) {
    const int id = ++lastId_;
    if (!open_) {
        if (onReply) onReply(nullptr);
        return;
    }
    Json command = {
        {"id", id}, {"method", method}, {"params", params.is_null() ? Json::object() : std::move(params)}};
    if (!session.empty()) command["sessionId"] = session;
    if (onReply) replies_.emplace(id, std::move(onReply));
    // What cannot be sent is answered by the end of the engine, which is on its way.
    Send(command.dump(-1, ' ', false, Json::error_handler_t::replace));
}

void Connection::Send(std::string_view message) {
    if (together_) {
        together_->append(message) += '\0';
    } else {
        transport_->Write(message);
    }
}

void Connection::Batch(const std::function<void()>& posts) {
    if (together_) return posts();
    together_.emplace();
    const HRESULT status = Guard(posts);
    const std::string messages = std::move(*together_);
    together_.reset();
    ThrowIfFailed(status);
    // The last end is written by the transport.
    if (!messages.empty()) transport_->Write(std::string_view(messages).substr(0, messages.size() - 1));
}

Json Connection::Call(std::string_view session, std::string_view method, Json params, DWORD timeout) {
    // Shared, because a reply may come after the wait has been given up.
    struct Answer {
        bool there = false;
        bool failed = false;
        Json result;
    };
    const auto answer = std::make_shared<Answer>();
    Post(session, method, std::move(params), [answer](const Json* result) {
        answer->there = true;
        answer->failed = !result;
        if (result) answer->result = *result;
    });
    const bool waited = WaitUntil([&] { return answer->there; }, timeout);
    if (!answer->there) throw StatusError(waited || open_ ? RPC_E_TIMEOUT : RPC_E_DISCONNECTED);
    if (answer->failed) throw StatusError(open_ ? E_FAIL : RPC_E_DISCONNECTED);
    return std::move(answer->result);
}

void Connection::Listen(std::string_view session, EventHandler handler) {
    if (handler) {
        listeners_[std::string(session)] = std::move(handler);
    } else if (const auto found = listeners_.find(session); found != listeners_.end()) {
        listeners_.erase(found);
    }
}

void Connection::ListenToFrames(std::string_view session, FrameHandler handler) {
    const std::lock_guard lock(framesLock_);
    if (handler) {
        frameHandlers_[std::string(session)] = std::move(handler);
    } else if (const auto found = frameHandlers_.find(session); found != frameHandlers_.end()) {
        frameHandlers_.erase(found);
    }
}

bool Connection::WaitUntil(const std::function<bool()>& condition, DWORD timeout) {
    const std::shared_ptr<bool> alive = alive_;
    // Waits inside a wait share its patience: with calls that come in all the time, none of them may last for
    // long.
    if (depth_++ == 0) reducedServiceUntil_ = GetTickCount64() + kReducedServiceTime;
    const bool met = Wait(*alive, condition, timeout);
    if (*alive) --depth_;
    return met;
}

bool Connection::Wait(const bool& alive, const std::function<bool()>& condition, DWORD timeout) {
    const ULONGLONG start = GetTickCount64();
    for (;;) {
        Deliver();
        if (!alive) return false;
        if (condition()) return true;
        const ULONGLONG now = GetTickCount64();
        if (!open_ || (timeout != INFINITE && now - start >= timeout)) return false;
        const ULONGLONG left = timeout == INFINITE ? kPollInterval : start + timeout - now;
        if (!WaitForMore(static_cast<DWORD>(std::min<ULONGLONG>(left, kPollInterval)),
                         now < reducedServiceUntil_) ||
            !alive)
            return false;
    }
}

// Calls from other apartments are served at all times, the rest of the messages only when patience is over.
bool Connection::WaitForMore(DWORD timeout, bool patient) {
    HANDLE event = arrived_.Get();
    DWORD index = 0;
    {
        const std::lock_guard lock(queueLock_);
        if (!queue_.empty()) return true;
        ++waits_;
    }
    if (patient) {
        const HRESULT status = CoWaitForMultipleHandles(0, timeout, 1, &event, &index);
        // A thread without COM has no calls to serve.
        if (status == CO_E_NOTINITIALIZED) WaitForSingleObject(event, timeout);
        // Wine overlooks a call that comes in while it looks for others, until it gets another message.
        if (status != S_OK) PostMessageW(window_.Get(), WM_NULL, 0, 0);
    } else {
        MsgWaitForMultipleObjectsEx(1, &event, timeout, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
    {
        const std::lock_guard lock(queueLock_);
        --waits_;
    }
    return patient || PumpAll();
}

LRESULT CALLBACK Connection::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const connection = reinterpret_cast<Connection*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (connection) (void)Guard([&] { connection->OnMessage(message, wParam); });
    return DefWindowProcW(window, message, wParam, lParam);
}

void Connection::OnMessage(UINT message, WPARAM wParam) {
    if (message == WM_TIMER && wParam == kCloseTimer) CloseAgain();
    if (message != kArrived) return;
    {
        const std::lock_guard lock(queueLock_);
        posted_ = false;
    }
    Deliver();
}

// One at a time from the front: a handler that waits delivers what comes after it, in order.
void Connection::Deliver() {
    const std::shared_ptr<bool> alive = alive_;
    while (*alive) {
        std::optional<Json> message;
        {
            const std::lock_guard lock(queueLock_);
            if (queue_.empty()) return;
            message = std::move(queue_.front());
            queue_.pop_front();
            // A handler may run a message loop of its own, which then delivers the rest.
            if (!queue_.empty()) PostArrival();
        }
        if (message) {
            (void)Guard([&] { DeliverOne(*message); });
        } else {
            DeliverEnd();
        }
    }
}

void Connection::DeliverOne(const Json& message) {
    if (const auto id = message.find("id"); id != message.end()) {
        const auto found = replies_.find(id->get<int>());
        if (found == replies_.end()) return;
        const ReplyHandler handler = std::move(found->second);
        replies_.erase(found);
        const auto result = message.find("result");
        (void)Guard([&] { handler(result == message.end() ? nullptr : &*result); });
        return;
    }
    const auto found = listeners_.find(message.value("sessionId", std::string()));
    const auto method = message.find("method");
    if (found == listeners_.end() || method == message.end()) return;
    const EventHandler handler = found->second;
    static const Json kNone = Json::object();
    const auto params = message.find("params");
    (void)Guard([&] { handler(method->get<std::string>(), params == message.end() ? kNone : *params); });
}

void Connection::DeliverEnd() {
    open_ = false;
    const auto replies = std::move(replies_);
    replies_.clear();
    for (const auto& [id, handler] : replies)
        (void)Guard([&] { handler(nullptr); });
    const auto listeners = listeners_;
    for (const auto& [session, handler] : listeners) {
        (void)Guard([&] { handler("Inspector.disconnected", Json::object()); });
    }
}

}  // namespace tarvik
