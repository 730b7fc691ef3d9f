#include "plugins/http/web_response.h"

#include "plugins/http/content_length.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr DWORD kTimeout = 30'000;  // milliseconds

void SetReceiveTimeout(HINTERNET handle) {
    DWORD limit = kTimeout;
    if (!InternetSetOptionW(handle, INTERNET_OPTION_RECEIVE_TIMEOUT, &limit, sizeof limit)) ThrowLastError();
}

// Wine honours the timeout only on the request handle. InternetOpenUrlW returns that handle after the server
// has responded, so the timeout is set in the callback.
void CALLBACK OnStatus(HINTERNET, DWORD_PTR, DWORD status, LPVOID information, DWORD) {
    if (status != INTERNET_STATUS_HANDLE_CREATED) return;
    const auto* const created = static_cast<const INTERNET_ASYNC_RESULT*>(information);
    (void)Guard([&] { SetReceiveTimeout(reinterpret_cast<HINTERNET>(created->dwResult)); });
}
constexpr DWORD_PTR kCallbackContext = 1;  // 0 would disable the callback

}  // namespace

WebResponse::WebResponse(const std::wstring& url)
    : session_(InternetOpenW(L"Tarvik", INTERNET_OPEN_TYPE_DIRECT, nullptr, nullptr, 0)) {
    if (!session_) ThrowLastError();
    SetReceiveTimeout(session_.Get());
    InternetSetStatusCallbackW(session_.Get(), OnStatus);
    request_.Reset(InternetOpenUrlW(session_.Get(), url.c_str(), nullptr, 0, INTERNET_FLAG_RESYNCHRONIZE,
                                    kCallbackContext));
    if (!request_) ThrowLastError();
}

std::uint32_t WebResponse::ContentLength() const {
    wchar_t text[100] = {};
    DWORD size = sizeof text;
    if (!HttpQueryInfoW(request_.Get(), HTTP_QUERY_CONTENT_LENGTH, text, &size, nullptr)) ThrowLastError();
    const auto length = ParseContentLength(text);
    if (!length) throw StatusError(E_FAIL);
    return *length;
}

std::uint32_t WebResponse::Read(std::span<std::uint8_t> bytes) const {
    DWORD count = 0;
    if (!InternetReadFile(request_.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count))
        ThrowLastError();
    return count;
}

}  // namespace tarvik
