#include "page_control/engine/connection.h"

#include <algorithm>
#include <thread>

#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr DWORD kEndTimeout = 2000;
// A longer wait serves all messages, so that a page that computes for ever does not freeze its window.
constexpr DWORD kCallsOnlyPeriod = 2000;
// A wait checks its condition at least this often: a call that it serves may have met it without a message of
// the engine, and does not end the system's wait.
constexpr DWORD kPollInterval = 50;

}  // namespace

Connection::Connection(std::unique_ptr<Transport> transport, MessageFilter filter)
    : transport_(std::move(transport)),
      filter_(std::move(filter)),
      queue_([this] { Deliver(); }),
      pages_(*this),
      reader_(*transport_, queue_, [this] { return ++lastId_; }) {}

Connection::~Connection() {
    *alive_ = false;
    End();
}

void Connection::End() {
    // On request the engine closes in its own time; without its input it must. A write blocks if the engine
    // has stopped reading, so a thread makes it.
    std::thread closer([this] {
        if (open_) transport_->Write(R"({"id":0,"method":"Browser.close"})");
        reader_.WaitForEnd(kEndTimeout);
        transport_->CloseWriting();
    });
    if (!reader_.WaitForEnd(2 * kEndTimeout)) transport_->Kill();
    closer.join();
}

// ---- Commands

void Connection::Post(std::string_view session, std::string_view method, Parameters params,
                      ReplyHandler onReply) {
    const int id = ++lastId_;
    if (!open_) {
        if (onReply) onReply(nullptr);
        return;
    }
    Json command = {{"id", id}, {"method", method}, {"params", std::move(params).Take()}};
    if (!session.empty()) command["sessionId"] = session;
    if (onReply) replies_.emplace(id, std::move(onReply));
    // If this fails the engine has ended, and DeliverEnd calls the handler.
    Send(command.dump(-1, ' ', false, Json::error_handler_t::replace));
}

void Connection::Send(std::string_view message) {
    if (batch_) {
        batch_->append(message) += '\0';
    } else {
        transport_->Write(message);
    }
}

void Connection::Batch(const std::function<void()>& posts) {
    if (batch_) return posts();
    batch_.emplace();
    const HRESULT status = Guard(posts);
    const std::string messages = std::move(*batch_);
    batch_.reset();
    ThrowIfFailed(status);
    // The transport writes the last terminator.
    if (!messages.empty()) transport_->Write(std::string_view(messages).substr(0, messages.size() - 1));
}

Json Connection::Call(std::string_view session, std::string_view method, Parameters params, DWORD timeout) {
    // Shared, because a reply may arrive after the timeout.
    struct Reply {
        bool received = false;
        bool failed = false;
        Json result;
    };
    const auto reply = std::make_shared<Reply>();
    Post(session, method, std::move(params), [reply](const Json* result) {
        reply->received = true;
        reply->failed = !result;
        if (result) reply->result = *result;
    });
    const bool waited = WaitUntil([&] { return reply->received; }, timeout);
    if (!reply->received) throw StatusError(waited || open_ ? RPC_E_TIMEOUT : RPC_E_DISCONNECTED);
    if (reply->failed) throw StatusError(open_ ? E_FAIL : RPC_E_DISCONNECTED);
    return std::move(reply->result);
}

// ---- Replies and events

void Connection::Listen(std::string_view session, EventHandler handler) {
    if (handler) {
        listeners_[std::string(session)] = std::move(handler);
    } else if (const auto found = listeners_.find(session); found != listeners_.end()) {
        listeners_.erase(found);
    }
}

// Takes one message at a time from the queue: a handler that waits delivers the following ones, in order.
void Connection::Deliver() {
    const std::shared_ptr<bool> alive = alive_;
    for (MessageQueue::Message message; *alive && queue_.Pop(&message);) {
        if (message) {
            (void)Guard([&] { DeliverMessage(*message); });
        } else {
            DeliverEnd();
        }
    }
}

void Connection::DeliverMessage(const Json& message) {
    if (const auto id = message.find("id"); id != message.end()) return DeliverReply(*id, message);
    const auto found = listeners_.find(message.value("sessionId", std::string()));
    const auto method = message.find("method");
    if (found == listeners_.end() || method == message.end()) return;
    const EventHandler handler = found->second;
    static const Json kNone = Json::object();
    const auto params = message.find("params");
    handler(method->get<std::string>(), params == message.end() ? kNone : *params);
}

void Connection::DeliverReply(int id, const Json& message) {
    const auto found = replies_.find(id);
    if (found == replies_.end()) return;
    const ReplyHandler handler = std::move(found->second);
    replies_.erase(found);
    const auto result = message.find("result");
    handler(result == message.end() ? nullptr : &*result);
}

void Connection::DeliverEnd() {
    open_ = false;
    const auto replies = std::move(replies_);
    replies_.clear();
    for (const auto& [id, handler] : replies)
        (void)Guard([&handler = handler] { handler(nullptr); });
    const auto listeners = listeners_;
    for (const auto& [session, handler] : listeners) {
        (void)Guard([&handler = handler] { handler("Inspector.disconnected", Json::object()); });
    }
}

// ---- Waits

bool Connection::WaitUntil(const std::function<bool()>& condition, DWORD timeout) {
    const std::shared_ptr<bool> alive = alive_;
    // Nested waits share the period: with calls arriving all the time, no single wait would last that long.
    if (depth_++ == 0) callsOnlyUntil_ = GetTickCount64() + kCallsOnlyPeriod;
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
        if (!WaitForMessages(static_cast<DWORD>(std::min<ULONGLONG>(left, kPollInterval))) || !alive)
            return false;
    }
}

// Calls from other apartments are served at all times, other messages only in a long wait. False if the
// program is to quit.
bool Connection::WaitForMessages(DWORD timeout) {
    using Service = MessageQueue::Service;
    const Service service = GetTickCount64() < callsOnlyUntil_ ? Service::kCalls : Service::kAllMessages;
    return !queue_.Wait(timeout, service) || service == Service::kCalls || PumpMessages();
}

// Stands in for the program's message loop. False if the program is to quit; then that loop gets WM_QUIT,
// too.
bool Connection::PumpMessages() const {
    const MessageFilter filter = filter_;  // a message may destroy the connection
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        if (filter && filter(&message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

}  // namespace tarvik
