// The reader's side of a connection, and the one connection of the process.

#include "control/engine/devtools.h"

#include <future>

#include "tarvik/status.h"
#include "control/engine/connection.h"
#include "control/engine/engine_path.h"

namespace tarvik {

namespace {

constexpr std::string_view kFramePrefix = R"({"method":"Page.screencastFrame","params":{"data":")";
constexpr std::string_view kPausedPrefix = R"({"method":"Debugger.paused")";
constexpr std::string_view kParsedPrefix = R"({"method":"Debugger.scriptParsed")";
constexpr DWORD kReadSize = 256 * 1024;
// What sends more than this without a message is no engine. The first message is a short one, the longest
// holds the longest string of script.
constexpr size_t kMostBeforeFirst = 1 << 20;
constexpr size_t kMostBetween = size_t{1} << 31;

std::weak_ptr<Connection> current;
std::wstring lastStartError;
std::future<std::unique_ptr<Transport>> prelaunched;

std::unique_ptr<Transport> Launch(const std::wstring& engine) {
    return IsWine() ? StartThroughFifos(engine) : StartThroughPipes(engine);
}

std::shared_ptr<Connection> Start() {
    const std::wstring engine = FindEngine();
    if (engine.empty()) {
        lastStartError = MissingEngineText();
        throw StatusError(REGDB_E_CLASSNOTREG);
    }
    lastStartError = L"The web engine could not be started:\n" + engine;
    auto connection = std::make_shared<Connection>(prelaunched.valid() ? prelaunched.get() : Launch(engine));
    current = connection;  // who comes while it greets joins in
    connection->Handshake();
    lastStartError.clear();
    return connection;
}

}  // namespace

std::shared_ptr<DevTools> DevTools::Acquire() {
    auto connection = current.lock();
    if (connection && connection->IsOpen()) return connection;
    try {
        connection = Start();
    } catch (const StatusError& error) {
        // Now and then an engine ends before its first word; a second start works.
        if (error.Status() != RPC_E_DISCONNECTED) throw;
        connection = Start();
    }
    current = connection;
    return connection;
}

void DevTools::Prelaunch() {
    if (prelaunched.valid()) return;
    const std::wstring engine = FindEngine();
    if (!engine.empty()) prelaunched = std::async(std::launch::async, Launch, engine);
}

// Windows that are still there go with the process, and nobody lets go of the engine for them. Under Wine it
// cleans up behind itself.
void DevTools::Shutdown() {
    prelaunched = {};
    const auto connection = current.lock();
    if (connection && !IsWine()) connection->Kill();
}

std::wstring DevTools::LastStartError() {
    return lastStartError;
}

void Connection::ReadMessages() {
    std::string pending;
    std::string buffer(kReadSize, '\0');
    size_t most = kMostBeforeFirst;
    size_t unknown = 0;  // bytes since the last message
    while (const DWORD read = unknown <= most ? transport_->Read(buffer.data(), kReadSize) : 0) {
        unknown += read;
        std::string_view fresh(buffer.data(), read);
        for (size_t end; (end = fresh.find('\0')) != std::string_view::npos; fresh.remove_prefix(end + 1)) {
            pending.append(fresh.substr(0, end));
            bool isMessage = false;
            (void)Guard([&] { isMessage = Receive(pending); });
            if (isMessage) {
                most = kMostBetween;
                unknown = 0;
            }
            pending.clear();
        }
        pending.append(fresh);
    }
    (void)Guard([&] { Queue(std::nullopt); });
    SetEvent(ended_.Get());
}

// False for what is no message. Some messages are long and frequent, and nobody needs all of them: every
// evaluation is announced as a script, and a pause tells all frames of the stack.
bool Connection::Receive(std::string_view message) {
    if (message.starts_with(kFramePrefix)) {
        ReceiveFrame(message);
    } else if (message.starts_with(kPausedPrefix)) {
        constexpr std::string_view kSession = R"("sessionId":")";
        const size_t session = message.rfind(kSession);
        if (session == std::string_view::npos) return false;
        const std::string_view id = message.substr(session + kSession.size());
        Queue(Json{{"method", "Debugger.paused"}, {"sessionId", id.substr(0, id.find('"'))}});
    } else if (!message.starts_with(kParsedPrefix)) {
        Json parsed = Json::parse(message, nullptr, false);
        if (!parsed.is_object()) return false;
        Queue(std::move(parsed));
    }
    return true;
}

// A frame is some hundred kilobytes of base64: only what follows it is parsed.
void Connection::ReceiveFrame(std::string_view message) {
    const std::string_view rest = message.substr(kFramePrefix.size());
    const size_t end = rest.find('"');
    if (end == std::string_view::npos || end + 2 > rest.size()) return;
    const Json tail = Json::parse(R"({"params":{)" + std::string(rest.substr(end + 2)), nullptr, false);
    if (tail.is_discarded()) return;
    const std::string session = tail.value("sessionId", std::string());
    const Json acknowledgement = {{"id", ++lastId_},
                                  {"method", "Page.screencastFrameAck"},
                                  {"params", {{"sessionId", tail["params"]["sessionId"]}}},
                                  {"sessionId", session}};
    transport_->Write(acknowledgement.dump());
    const std::lock_guard lock(framesLock_);
    if (const auto found = frameHandlers_.find(session); found != frameHandlers_.end()) {
        found->second(rest.substr(0, end));
    }
}

// A waiting main thread hears of it by the event, one in a message loop by a message. It may be both: a wait
// serves calls from other apartments, which may run message loops.
void Connection::Queue(std::optional<Json> message) {
    const std::lock_guard lock(queueLock_);
    queue_.push_back(std::move(message));
    if (waits_ > 0) SetEvent(arrived_.Get());
    PostArrival();
}

// A loop of somebody else's may swallow the message, so one is not relied on for long.
void Connection::PostArrival() {
    constexpr ULONGLONG kReliance = 200;
    const ULONGLONG now = GetTickCount64();
    if (posted_ && now - postedAt_ < kReliance) return;
    posted_ = true;
    postedAt_ = now;
    PostMessageW(window_.Get(), kArrived, 0, 0);
}

}  // namespace tarvik
