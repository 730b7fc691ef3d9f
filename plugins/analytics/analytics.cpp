#include "plugins/analytics/analytics.h"

#include "app/log/log.h"
#include "base/module_function.h"
#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr int kTimeout = 5'000;  // milliseconds, for each step

// Sent, failed, or disconnected. The callback destroys the hit at its first notification, so it must not
// receive any other.
constexpr DWORD kFinalNotifications = WINHTTP_CALLBACK_FLAG_SENDREQUEST_COMPLETE |
                                      WINHTTP_CALLBACK_FLAG_REQUEST_ERROR |
                                      WINHTTP_CALLBACK_FLAG_CLOSE_CONNECTION;

constexpr DWORD kIgnoredErrors = SECURITY_FLAG_IGNORE_UNKNOWN_CA | SECURITY_FLAG_IGNORE_CERT_WRONG_USAGE |
                                 SECURITY_FLAG_IGNORE_CERT_CN_INVALID |
                                 SECURITY_FLAG_IGNORE_CERT_DATE_INVALID;

// Services expect the part in parentheses in this form: "WOW64" if IsWow64Process exists, even in a 64-bit
// program.
std::wstring UserAgent() {
    // Compilers warn about the deprecated declaration.
    const DWORD version = FindFunction<DWORD WINAPI()>(L"kernel32.dll", "GetVersion")();
    const bool mayBeWow64 = FindFunction<BOOL WINAPI(HANDLE, BOOL*)>(L"kernel32.dll", "IsWow64Process");
    SYSTEM_INFO system = {};
    GetNativeSystemInfo(&system);
    return L"Quillon Metrics/0.1 (Windows NT " + DecimalText(version & 0xFF) + L"." +
           DecimalText(version >> 8 & 0xFF) +
           (mayBeWow64                            ? L", WOW64)"
            : system.wProcessorArchitecture & 0x9 ? L", Win64; x64)"
                                                  : L")");
}

UniqueWinHttp Checked(HINTERNET handle) {
    if (!handle) ThrowLastError();
    return UniqueWinHttp(handle);
}

void SetFlags(HINTERNET request, DWORD option, DWORD flags) {
    WinHttpSetOption(request, option, &flags, sizeof flags);
}

}  // namespace

CAnalytics::CAnalytics()
    : root_(WinHttpOpen(UserAgent().c_str(), WINHTTP_ACCESS_TYPE_DEFAULT_PROXY, WINHTTP_NO_PROXY_NAME,
                        WINHTTP_NO_PROXY_BYPASS, WINHTTP_FLAG_ASYNC)) {
    HINTERNET context = root_.Get();
    if (!WinHttpSetOption(root_.Get(), WINHTTP_OPTION_CONTEXT_VALUE, &context, sizeof context) ||
        !WinHttpSetTimeouts(root_.Get(), kTimeout, kTimeout, kTimeout, kTimeout))
        root_.Reset();
}

void CAnalytics::Open(const AnalyticsEndpoint& endpoint) {
    if (!root_) throw StatusError(E_FAIL);
    connection_ = Checked(WinHttpConnect(root_.Get(), endpoint.host.c_str(), endpoint.port, 0));
    request_ =
        Checked(WinHttpOpenRequest(connection_.Get(), L"POST", L"/collect", nullptr, WINHTTP_NO_REFERER,
                                   WINHTTP_DEFAULT_ACCEPT_TYPES, WINHTTP_FLAG_SECURE));
    if (WinHttpSetStatusCallback(request_.Get(), StatusCallback, kFinalNotifications, 0) ==
        WINHTTP_INVALID_STATUS_CALLBACK)
        ThrowLastError();
    if (!WinHttpAddRequestHeaders(request_.Get(), L"Content-Type: application/x-www-form-urlencoded",
                                  static_cast<DWORD>(-1), WINHTTP_ADDREQ_FLAG_ADD))
        ThrowLastError();
    SetFlags(request_.Get(), WINHTTP_OPTION_ENABLE_FEATURE, WINHTTP_ENABLE_SSL_REVOCATION);
    SetFlags(request_.Get(), WINHTTP_OPTION_SECURITY_FLAGS, kIgnoredErrors);
}

void CAnalytics::Send(std::unique_ptr<CAnalytics> hit, const std::wstring& body) {
    hit->body_ = Narrow(body);
    const auto length = static_cast<DWORD>(hit->body_.size());
    // The callback owns the hit from here on. It is not called if WinHttpSendRequest fails.
    CAnalytics* const sent = hit.release();
    if (!WinHttpSendRequest(sent->request_.Get(), WINHTTP_NO_ADDITIONAL_HEADERS, 0, sent->body_.data(),
                            length, length, reinterpret_cast<DWORD_PTR>(sent))) {
        const HRESULT status = LastFailureStatus();
        hit.reset(sent);
        throw StatusError(status);
    }
}

// Called on a thread of the system.
void CALLBACK CAnalytics::StatusCallback(HINTERNET request, DWORD_PTR context, DWORD status, LPVOID, DWORD) {
    TARVIK_TRACE_TEXT("CAnalytics::StatusCallback", L"%08X", static_cast<unsigned>(status));
    WinHttpSetStatusCallback(request, nullptr, WINHTTP_CALLBACK_FLAG_ALL_NOTIFICATIONS, 0);
    const std::unique_ptr<CAnalytics> finished(reinterpret_cast<CAnalytics*>(context));
}

}  // namespace tarvik
