#include "tarvik/status.h"

namespace tarvik {

HRESULT LastErrorStatus() noexcept {
    return HRESULT_FROM_WIN32(GetLastError());
}

HRESULT LastFailureStatus() noexcept {
    const HRESULT status = LastErrorStatus();
    return FAILED(status) ? status : E_FAIL;
}

void ThrowLastError() {
    throw StatusError(LastFailureStatus());
}

bool IsDisconnected(HRESULT status) noexcept {
    return status == RPC_E_DISCONNECTED || status == RPC_E_SERVER_DIED || status == RPC_E_SERVER_DIED_DNE ||
           status == CO_E_OBJNOTCONNECTED || status == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
}

HRESULT CaughtStatus() noexcept {
    try {
        throw;
    } catch (const StatusError& error) {
        return error.Status();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

}  // namespace tarvik
