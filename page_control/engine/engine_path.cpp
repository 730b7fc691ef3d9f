#include "page_control/engine/engine_path.h"

#include <windows.h>

#include "base/path.h"

namespace tarvik {

namespace {

constexpr const wchar_t* kWineEngine = L"/usr/bin/chromium";
constexpr const wchar_t* kPrograms[] = {L"msedge.exe", L"chrome.exe", L"chromium.exe"};

std::wstring RegisteredProgram(HKEY root, const wchar_t* program) {
    const std::wstring key =
        std::wstring(L"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\") + program;
    return ReadPath([&](wchar_t* buffer) {
        DWORD size = kPathLength * sizeof(wchar_t);
        RegGetValueW(root, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, buffer, &size);
    });
}

bool Exists(const std::wstring& path) {
    return !path.empty() && GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// A Unix path as Wine maps it.
std::wstring AsWinePath(std::wstring path) {
    if (path.empty() || path[0] != L'/') return path;
    for (wchar_t& character : path) {
        if (character == L'/') character = L'\\';
    }
    return L"Z:" + path;
}

std::wstring ConfiguredEngine() {
    return ReadPath([](wchar_t* buffer) { GetEnvironmentVariableW(L"TARVIK_BROWSER", buffer, kPathLength); });
}

}  // namespace

std::wstring FindEngine() {
    const std::wstring given = ConfiguredEngine();
    if (!given.empty()) return Exists(IsWine() ? AsWinePath(given) : given) ? given : std::wstring();
    if (IsWine()) return Exists(AsWinePath(kWineEngine)) ? kWineEngine : std::wstring();
    for (const wchar_t* program : kPrograms) {
        for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
            if (const std::wstring path = RegisteredProgram(root, program); Exists(path)) return path;
        }
    }
    return {};
}

std::wstring MissingEngineText() {
    std::wstring text = L"This application needs a web engine, and none was found.\n";
    if (const std::wstring given = ConfiguredEngine(); !given.empty())
        return text + L"The environment variable TARVIK_BROWSER names a file that does not exist:\n" + given;
    text += IsWine() ? L"Install the package \"chromium\"" : L"Install Microsoft Edge or Google Chrome";
    return text + L", or set the environment variable TARVIK_BROWSER to the path of a browser.";
}

}  // namespace tarvik
