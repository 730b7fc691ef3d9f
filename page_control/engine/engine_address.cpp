#include "page_control/engine/engine_address.h"

#include <windows.h>
#include <shlwapi.h>

#include <algorithm>
#include <cctype>

#include "base/path.h"
#include "page_control/engine/engine_path.h"
#include "page_control/engine/unix_path.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr std::string_view kFileScheme = "file:///";

bool IsFileUrl(std::string_view url) {
    return url.size() >= kFileScheme.size() &&
           std::equal(kFileScheme.begin(), kFileScheme.end(), url.begin(), [](char left, char right) {
               return left == std::tolower(static_cast<unsigned char>(right));
           });
}

std::string Escape(std::string_view path) {
    constexpr std::string_view kPlain = "/:._-~!$&'()*+,;=@";
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string escaped;
    for (const char character : path) {
        const auto byte = static_cast<unsigned char>(character);
        if (std::isalnum(byte) || kPlain.find(character) != std::string_view::npos) {
            escaped += character;
        } else {
            escaped += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
        }
    }
    return escaped;
}

std::string Unescape(const std::string& text) {
    std::string plain = text;
    DWORD length = static_cast<DWORD>(plain.size() + 1);
    UrlUnescapeA(plain.data(), nullptr, &length, URL_UNESCAPE_INPLACE);
    return plain.c_str();
}

std::string FileUrl(const std::wstring& path) {
    if (const std::string unixPath = UnixPath(path); !unixPath.empty()) return "file://" + Escape(unixPath);
    std::string slashes = Narrow(path);
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    const bool share = slashes.starts_with("//");
    return (share ? "file:" : std::string(kFileScheme)) + Escape(slashes);
}

}  // namespace

std::string EngineAddress(const std::wstring& address) {
    if (!PathIsURLW(address.c_str())) {
        const size_t hash = address.find(L'#');
        const std::wstring fragment = hash == std::wstring::npos ? std::wstring() : address.substr(hash);
        return FileUrl(FullPath(address.substr(0, hash))) + Narrow(fragment);
    }
    const std::string url = Narrow(address);
    if (!IsFileUrl(url) || !IsWine()) return url;
    const size_t end = std::min(url.find_first_of("?#"), url.size());
    std::wstring path = Widen(Unescape(url.substr(kFileScheme.size(), end - kFileScheme.size())));
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return FileUrl(path) + url.substr(end);
}

std::string OriginOf(std::string_view url) {
    constexpr std::string_view kSeparator = "://";
    const size_t separator = url.find(kSeparator);
    if (separator == url.npos) return {};
    if (IsFileUrl(url)) return "file://";
    const size_t host = separator + kSeparator.size();
    std::string_view authority = url.substr(host, url.find_first_of("/?#", host) - host);
    authority.remove_prefix(authority.find('@') + 1);
    return std::string(url.substr(0, host)).append(authority);
}

std::wstring HostAddress(const std::string& url) {
    if (!IsFileUrl(url) || !IsWine()) return Widen(url);
    const size_t end = std::min(url.find_first_of("?#"), url.size());
    std::wstring path = DosPath(Unescape(url.substr(kFileScheme.size() - 1, end - kFileScheme.size() + 1)));
    if (path.empty()) return Widen(url);
    std::replace(path.begin(), path.end(), L'\\', L'/');
    return Widen(kFileScheme) + Widen(Escape(Narrow(path)) + url.substr(end));
}

}  // namespace tarvik
