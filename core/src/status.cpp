#include "tarvik/status.h"

namespace tarvik {

HRESULT LastFailureStatus() noexcept {
    const HRESULT status = HRESULT_FROM_WIN32(GetLastError());
    return FAILED(status) ? status : E_FAIL;
}

void ThrowLastError() {
    throw StatusError(LastFailureStatus());
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
