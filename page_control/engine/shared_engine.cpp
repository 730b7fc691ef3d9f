#include "page_control/engine/shared_engine.h"

#include "page_control/engine/engine_path.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

std::unique_ptr<Transport> Launch(const std::wstring& engine) {
    return IsWine() ? StartThroughFifos(engine) : StartThroughPipes(engine);
}

}  // namespace

std::shared_ptr<Connection> SharedEngine::Start() {
    const std::wstring engine = FindEngine();
    if (engine.empty()) {
        lastStartError_ = MissingEngineText();
        throw StatusError(REGDB_E_CLASSNOTREG);
    }
    lastStartError_ = L"The web engine could not be started:\n" + engine;
    const auto filter = [weak = weak_from_this()](MSG* message) {
        const auto self = weak.lock();
        return self && self->filter_ && self->filter_(message);
    };
    auto connection =
        std::make_shared<Connection>(prelaunched_.valid() ? prelaunched_.get() : Launch(engine), filter);
    connection_ = connection;  // calls of Acquire during the handshake join it
    connection->Handshake();
    lastStartError_.clear();
    return connection;
}

std::shared_ptr<DevTools> SharedEngine::Acquire() {
    if (auto connection = connection_.lock(); connection && connection->IsOpen()) return connection;
    try {
        return Start();
    } catch (const StatusError& error) {
        // Some engines end before their first message; a second start works.
        if (error.Status() != RPC_E_DISCONNECTED) throw;
        return Start();
    }
}

void SharedEngine::Prelaunch() {
    if (prelaunched_.valid()) return;
    const std::wstring engine = FindEngine();
    if (!engine.empty()) prelaunched_ = std::async(std::launch::async, Launch, engine);
}

// Windows that still exist end with the process and never release the engine. Under Wine the engine's shell
// cleans up.
void SharedEngine::Shutdown() {
    prelaunched_ = {};
    const auto connection = connection_.lock();
    if (connection && !IsWine()) connection->Kill();
}

}  // namespace tarvik
