#include "base/status.h"

namespace tarvik {

HRESULT LastErrorStatus() noexcept {
    return HRESULT_FROM_WIN32(GetLastError());
}

bool IsDisconnected(HRESULT status) noexcept {
    return status == RPC_E_DISCONNECTED || status == RPC_E_SERVER_DIED || status == RPC_E_SERVER_DIED_DNE ||
           status == CO_E_OBJNOTCONNECTED || status == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
}

}  // namespace tarvik
