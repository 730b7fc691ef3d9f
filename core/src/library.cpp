#include "tarvik/library.h"

#include <shlwapi.h>

#include "tarvik/bstr.h"

namespace tarvik {

namespace {

// A path is never longer than its URL.
std::wstring PathOfFileUrl(const std::wstring& url) {
    DWORD length = static_cast<DWORD>(url.size() + 1);
    std::wstring path(length, L'\0');
    if (FAILED(PathCreateFromUrlW(url.c_str(), path.data(), &length, 0))) return url;
    path.resize(length);
    return path;
}

}  // namespace

std::wstring ResolveUrl(TVK::ICore* core, const std::wstring& url) {
    Bstr resolved;
    if (core) core->ResolveUrl(url.c_str(), resolved.Receive());
    return std::wstring(resolved.View());
}

std::wstring ResolvePath(TVK::ICore* core, const std::wstring& path) {
    const std::wstring url = ResolveUrl(core, path);
    return UrlIsFileUrlW(url.c_str()) ? PathOfFileUrl(url) : url;
}

}  // namespace tarvik
