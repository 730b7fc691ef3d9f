#include "host/page_address.h"

#include <windows.h>
#include <shlwapi.h>
#include <wininet.h>

#include <algorithm>

#include "app/command_line/command_line.h"
#include "base/path.h"
#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr std::wstring_view kFileScheme = L"file:///";

bool StartsWith(const std::wstring& text, std::wstring_view start) {
    return text.size() >= start.size() && _wcsnicmp(text.c_str(), start.data(), start.size()) == 0;
}

int HexDigit(wchar_t character) {
    if (character >= L'0' && character <= L'9') return character - L'0';
    const wchar_t lower = character | 0x20;
    return lower >= L'a' && lower <= L'f' ? lower - L'a' + 10 : -1;
}

// Decodes percent escapes, which encode the bytes of UTF-8.
std::wstring Unescape(const std::wstring& text) {
    const std::string escaped = Narrow(text);
    std::string bytes;
    for (size_t i = 0; i < escaped.size(); ++i) {
        const bool escape = escaped[i] == '%' && i + 2 < escaped.size();
        const int high = escape ? HexDigit(static_cast<unsigned char>(escaped[i + 1])) : -1;
        const int low = escape ? HexDigit(static_cast<unsigned char>(escaped[i + 2])) : -1;
        if (high >= 0 && low >= 0) {
            bytes += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            bytes += escaped[i];
        }
    }
    return Widen(bytes);
}

std::wstring BesideFilePage(const std::wstring& location, const std::wstring& url) {
    std::wstring path = location.substr(kFileScheme.size());
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return ReadPath([&](wchar_t* buffer) {
        path.copy(buffer, kPathLength - 1);
        PathAppendW(buffer, L"\\..\\");
        PathAddBackslashW(buffer);
        PathAppendW(buffer, url.c_str());
    });
}

// A control takes a `#` in a path for the start of a fragment, so such a path is converted to a URL. Other
// paths are passed on unchanged.
std::wstring AddressOfFile(const std::wstring& path) {
    if (path.find(L'#') == std::wstring::npos) return path;
    std::wstring url(INTERNET_MAX_URL_LENGTH, L'\0');
    auto length = static_cast<DWORD>(url.size());
    ThrowIfFailed(UrlCreateFromPathW(FullPath(path).c_str(), url.data(), &length, 0));
    url.resize(length);
    return url;
}

}  // namespace

std::wstring ChoosePage(const wchar_t* requested) {
    if (requested) return requested;
    const CCommandLine commandLine;
    const wchar_t* const given = commandLine.GetValue(L"/f");
    if (given && *given) return given;
    if (PathIsDirectoryW(L"resource")) {
        std::wstring folder = ReadPath([](wchar_t* buffer) { GetCurrentDirectoryW(kPathLength, buffer); });
        if (!PathIsRootW(folder.c_str())) folder += L'\\';
        return folder + L"resource\\index.html";
    }
    const std::wstring executable = ExecutablePath();
    SetCurrentDirectoryW((executable + L"\\..\\").c_str());
    return executable + L"\\..\\resource\\index.html";
}

std::wstring PageAddress(const std::wstring& page) {
    if (PathIsURLW(page.c_str())) return page;
    if (PathFileExistsW(page.c_str())) return AddressOfFile(page);
    for (size_t end = page.rfind(L'#'); end != 0 && end != std::wstring::npos;
         end = page.rfind(L'#', end - 1)) {
        const std::wstring file = page.substr(0, end);
        if (IsFile(file)) return AddressOfFile(file) + page.substr(end);
    }
    return {};
}

bool ChooseFirstPage() {
    bool isFound = false;
    (void)Guard([&] { isFound = !PageAddress(ChoosePage(nullptr)).empty(); });
    return isFound;
}

std::wstring ResolveAgainst(const std::wstring& url, const std::wstring& location) {
    if (PathIsURLW(url.c_str()) || !PathIsRelativeW(url.c_str())) return url;
    // Cut before unescaping, because an escaped `?` or `#` belongs to the file name; and at the first of the
    // two, because a fragment may contain a `?`.
    const std::wstring plain = Unescape(location.substr(0, location.find_first_of(L"?#")));
    if (StartsWith(plain, kFileScheme)) return BesideFilePage(plain, url);
    if (StartsWith(plain, L"http://") || StartsWith(plain, L"https://")) return {};
    return url;
}

}  // namespace tarvik
