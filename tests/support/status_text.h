#pragma once

#include <windows.h>

#include <cstdio>
#include <string>

#include <gmock/gmock.h>

namespace tarvik {

// "0x80070057"
inline std::string StatusText(HRESULT status) {
    char text[24];
    std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(status));
    return text;
}

// EXPECT_THAT(call, HasStatus(E_NOTIMPL))
MATCHER_P(HasStatus, wanted, (negation ? "is not " : "is ") + StatusText(wanted)) {
    *result_listener << "which is " << StatusText(arg);
    return arg == wanted;
}

}  // namespace tarvik
