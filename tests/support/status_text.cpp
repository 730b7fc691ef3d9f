#include "tests/support/status_text.h"

#include <cstdio>

namespace tarvik {

std::string StatusText(HRESULT status) {
    char hex[24];
    std::snprintf(hex, sizeof hex, "0x%08lX", static_cast<unsigned long>(status));
    return hex;
}

}  // namespace tarvik
