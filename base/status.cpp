#include "base/status.h"

namespace tarvik {

HRESULT LastErrorStatus() noexcept {
    return HRESULT_FROM_WIN32(GetLastError());
}

void ThrowFailure(HRESULT status) {
    throw StatusError(FAILED(status) ? status : E_FAIL);
}

void ThrowLastError() {
    ThrowFailure(LastErrorStatus());
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
