#pragma once

#include <windows.h>
#include <wininet.h>

#include <cstdint>
#include <span>
#include <string>

#include "tarvik/owners.h"

namespace tarvik {

namespace detail {

struct InternetTraits : PointerTraits<HINTERNET> {
    static void Close(HINTERNET value) noexcept { InternetCloseHandle(value); }
};

}  // namespace detail

using UniqueInternet = Owner<detail::InternetTraits>;

// The response to a GET request, without a proxy, after redirects. Members block until the server sends data,
// for at most 30 seconds, and throw the system's status for a failure. The HTTP status code is ignored, so
// the body may be that of an error page.
class WebResponse {
  public:
    explicit WebResponse(const std::wstring& url);

    // Throws if the header is missing, and E_FAIL if it is 0 or not a number. See ParseContentLength.
    std::uint32_t ContentLength() const;

    // Returns the number of bytes read; 0 at the end of the body.
    std::uint32_t Read(std::span<std::uint8_t> bytes) const;

  private:
    UniqueInternet session_;
    UniqueInternet request_;
};

}  // namespace tarvik
