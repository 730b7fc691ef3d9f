#include "page_control/engine/shared_engine.h"

#include "page_control/engine/engine_path.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

bool HasEnded(const StatusError& error) {
    return error.Status() == RPC_E_DISCONNECTED;
}

}  // namespace

std::unique_ptr<Transport> SharedEngine::Launch(const std::wstring& engine) {
    if (!profile_) profile_.emplace(report_);
    return (IsWine() ? StartThroughFifos : StartThroughPipes)(engine, profile_->Folder());
}

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

// Some engines end before their first message; a second start works.
std::shared_ptr<Connection> SharedEngine::StartWithRetry() {
    try {
        return Start();
    } catch (const StatusError& error) {
        if (!HasEnded(error)) throw;
        return Start();
    }
}

// If the engine still does not start, the profile may be the reason.
std::shared_ptr<DevTools> SharedEngine::Acquire() {
    if (auto connection = connection_.lock(); connection && connection->IsOpen()) return connection;
    try {
        return StartWithRetry();
    } catch (const StatusError& error) {
        if (!HasEnded(error) || profile_->Folder().empty()) throw;
    }
    auto connection = StartWithNewProfile();
    return connection ? connection : StartWithTemporaryProfile();
}

// Null if the engine does not start with a new profile either, or there can be none.
std::shared_ptr<Connection> SharedEngine::StartWithNewProfile() {
    if (!profile_->SetAside()) return nullptr;
    try {
        auto connection = StartWithRetry();
        Report(L"The profile of this application was damaged. It has been replaced; the old one is \"" +
               profile_->DamagedFolder() + L"\".");
        return connection;
    } catch (const StatusError& error) {
        profile_->Restore();
        if (!HasEnded(error)) throw;
        return nullptr;
    }
}

// The engine ends if it may not write to its profile.
std::shared_ptr<Connection> SharedEngine::StartWithTemporaryProfile() {
    const std::wstring folder = profile_->Folder();
    profile_->SetTemporary(true);
    try {
        auto connection = StartWithRetry();
        Report(L"The web engine does not start with the profile \"" + folder +
               L"\". What pages store is lost at the end.");
        return connection;
    } catch (...) {
        profile_->SetTemporary(false);
        throw;
    }
}

void SharedEngine::Prelaunch() {
    if (prelaunched_.valid()) return;
    const std::wstring engine = FindEngine();
    if (engine.empty()) return;
    prelaunched_ = std::async(std::launch::async, [this, engine] { return Launch(engine); });
}

// Windows that still exist end with the process and never release the engine. Under Wine the engine's shell
// cleans up.
void SharedEngine::Shutdown() {
    prelaunched_ = {};
    const auto connection = connection_.lock();
    if (!connection || IsWine()) return;
    connection->End();
    connection->Kill();
}

}  // namespace tarvik
