#include "app/log/report.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

#include "tarvik/owners.h"
#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

bool IsUsable(HANDLE handle) {
    return handle && handle != INVALID_HANDLE_VALUE;
}

void WriteToErrors(HANDLE errors, const std::wstring& text) {
    DWORD written = 0;
    if (WriteConsoleW(errors, text.c_str(), static_cast<DWORD>(text.size()), &written, nullptr)) return;
    const std::string bytes = Narrow(text);
    WriteFile(errors, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

// A GUI program has no console of its own but can attach to that of its parent. Attaching may replace the
// standard handles.
void WriteToParentConsole(const std::wstring& text) {
    constexpr DWORD kStandard[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
    HANDLE before[std::size(kStandard)];
    std::ranges::transform(kStandard, before, GetStdHandle);
    if (!AttachConsole(ATTACH_PARENT_PROCESS)) return;
    const UniqueHandle console(
        CreateFileW(L"CONOUT$", GENERIC_WRITE, FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    if (console) WriteToErrors(console.Get(), text);
    FreeConsole();
    for (size_t i = 0; i < std::size(kStandard); ++i)
        SetStdHandle(kStandard[i], before[i]);
}

}  // namespace

void ReportToAuthor(const std::wstring& text) noexcept {
    (void)Guard([&] {
        const std::wstring lines = text + L'\n';
        OutputDebugStringW(lines.c_str());
        if (const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE); IsUsable(errors)) {
            WriteToErrors(errors, lines);
        } else {
            WriteToParentConsole(lines);
        }
    });
}

}  // namespace tarvik
