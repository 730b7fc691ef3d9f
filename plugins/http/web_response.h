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

// What a server answers to a GET: straight from it, without a proxy, redirects followed. Each member waits
// for the server, 30 seconds at most for a sign of life; failures throw the system's status. The status code
// of the answer is not looked at: the body of an error page is a body.
class WebResponse {
  public:
    explicit WebResponse(const std::wstring& url);

    // As the server says it, which it must. No number, and 0, are E_FAIL; a negative number is taken as its
    // 32 bits; a number that they cannot hold becomes the largest signed one. That is intended.
    std::uint32_t ContentLength() const;

    // How many bytes came; 0 at the end of the body.
    std::uint32_t Read(std::span<std::uint8_t> bytes) const;

  private:
    UniqueInternet session_;
    UniqueInternet request_;
};

}  // namespace tarvik
