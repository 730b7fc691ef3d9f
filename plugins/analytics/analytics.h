#pragma once

#include <windows.h>
#include <winhttp.h>

#include <memory>
#include <string>

#include "tarvik/owners.h"

namespace tarvik {

namespace detail {

struct WinHttpTraits : PointerTraits<HINTERNET> {
    static void Close(HINTERNET value) noexcept { WinHttpCloseHandle(value); }
};

}  // namespace detail

using UniqueWinHttp = Owner<detail::WinHttpTraits>;

struct AnalyticsEndpoint {
    std::wstring host;
    INTERNET_PORT port = INTERNET_DEFAULT_HTTPS_PORT;
};

// One hit: a POST request over HTTPS. Its response is not read; the hit destroys itself when the request has
// been sent or has failed.
class CAnalytics {
  public:
    CAnalytics();  // Open reports its failures
    CAnalytics(const CAnalytics&) = delete;
    CAnalytics& operator=(const CAnalytics&) = delete;

    // Prepares the request without sending it. Failures are thrown.
    void Open(const AnalyticsEndpoint& endpoint);

    // Sends the request asynchronously. Throws if it cannot start.
    static void Send(std::unique_ptr<CAnalytics> hit, const std::wstring& body);

  private:
    static void CALLBACK StatusCallback(HINTERNET request, DWORD_PTR context, DWORD status, LPVOID, DWORD);

    std::string body_;  // WinHTTP reads it while it sends
    UniqueWinHttp root_;
    UniqueWinHttp connection_;
    UniqueWinHttp request_;
};

}  // namespace tarvik
