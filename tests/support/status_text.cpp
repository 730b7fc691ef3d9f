#include "tests/support/status_text.h"

#include <cstdio>

namespace tarvik {

namespace {

struct Known {
    HRESULT status;
    const char* name;
};
#define TARVIK_KNOWN(status) \
    { status, #status }
const Known kKnown[] = {
    TARVIK_KNOWN(S_OK),
    TARVIK_KNOWN(S_FALSE),
    TARVIK_KNOWN(E_NOTIMPL),
    TARVIK_KNOWN(E_NOINTERFACE),
    TARVIK_KNOWN(E_POINTER),
    TARVIK_KNOWN(E_ABORT),
    TARVIK_KNOWN(E_FAIL),
    TARVIK_KNOWN(E_INVALIDARG),
    TARVIK_KNOWN(E_OUTOFMEMORY),
    TARVIK_KNOWN(E_UNEXPECTED),
    TARVIK_KNOWN(DISP_E_UNKNOWNNAME),
    TARVIK_KNOWN(DISP_E_MEMBERNOTFOUND),
    TARVIK_KNOWN(DISP_E_BADINDEX),
    TARVIK_KNOWN(RPC_E_DISCONNECTED),
};

}  // namespace

std::string StatusText(HRESULT status) {
    char hex[24];
    std::snprintf(hex, sizeof hex, "0x%08lX", static_cast<unsigned long>(status));
    for (const Known& known : kKnown) {
        if (known.status == status) return std::string(known.name) + " (" + hex + ")";
    }
    return hex;
}

}  // namespace tarvik
