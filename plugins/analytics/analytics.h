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

// One hit: a POST over HTTPS whose answer nobody reads. It is over when the system tells for the first time
// what has become of it, sent or failed, whichever it is.
class CAnalytics {
  public:
    CAnalytics();  // a failure shows in Open
    CAnalytics(const CAnalytics&) = delete;
    CAnalytics& operator=(const CAnalytics&) = delete;

    // Nothing is sent yet. Failures throw.
    void Open(const AnalyticsEndpoint& endpoint);

    // Returns at once, and the hit ends by itself; a failure to begin throws.
    static void Send(std::unique_ptr<CAnalytics> hit, const std::wstring& body);

  private:
    static void CALLBACK StatusCallback(HINTERNET request, DWORD_PTR context, DWORD status, LPVOID, DWORD);

    std::string body_;  // is read until the end
    UniqueWinHttp root_;
    UniqueWinHttp connection_;
    UniqueWinHttp request_;
};

}  // namespace tarvik
