#include "plugins/analytics/hit_body.h"

#include <windows.h>
#include <shlwapi.h>

#include "base/language.h"
#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

std::wstring Escape(const std::wstring& text) {
    std::wstring escaped(3 * text.size(), L'\0');
    auto length = static_cast<DWORD>(escaped.size());
    ThrowIfFailed(UrlEscapeW(text.c_str(), escaped.data(), &length, URL_ESCAPE_SEGMENT_ONLY));
    escaped.resize(length);
    return escaped;
}

// The GUID of the hardware profile or, if there is none, as under Wine, of the system's installation.
std::wstring MachineGuid() {
    HW_PROFILE_INFOW profile = {};
    if (GetCurrentHwProfileW(&profile)) return profile.szHwProfileGuid;
    const HRESULT status = LastFailureStatus();
    wchar_t guid[HW_PROFILE_GUIDLEN] = {};
    DWORD size = sizeof guid;
    if (RegGetValueW(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\Cryptography", L"MachineGuid", RRF_RT_REG_SZ,
                     nullptr, guid, &size) != ERROR_SUCCESS)
        throw StatusError(status);
    return L'{' + std::wstring(guid) + L'}';
}

std::wstring UserLanguage() {
    const auto language = LanguageTag(GetUserDefaultLCID());
    if (!language) ThrowLastError();
    return *language;
}

std::wstring CommonParameters(const HitSettings& settings) {
    return L"v=1&tid=" + settings.trackingId + L"&cid=" + ClientId(MachineGuid()) + L"&ul=" +
           Escape(UserLanguage()) + L"&an=" + Escape(settings.applicationName) + L"&av=" +
           settings.applicationVersion + L"&vp=" + DecimalText(GetSystemMetrics(SM_CXSCREEN)) + L'x' +
           DecimalText(GetSystemMetrics(SM_CYSCREEN));
}

}  // namespace

std::wstring PageHitBody(const std::wstring& screen, const HitSettings& settings) {
    return L"t=appview&cd=" + Escape(screen) + L'&' + CommonParameters(settings);
}

std::wstring EventHitBody(const std::wstring& category, const std::wstring& action,
                          const HitSettings& settings) {
    return L"t=event&ec=" + Escape(category) + L"&ea=" + Escape(action) + L'&' + CommonParameters(settings);
}

std::wstring ClientId(std::wstring_view guid) {
    if (guid.starts_with(L'{')) {
        const std::wstring_view inner = guid.substr(1, guid.find(L'}') - 1);
        if (!inner.empty()) return std::wstring(inner);
    }
    return Escape(std::wstring(guid));
}

}  // namespace tarvik
