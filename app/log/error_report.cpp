#include "app/log/error_report.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

#include "tarvik/owners.h"
#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

bool IsValidHandle(HANDLE handle) {
    return handle && handle != INVALID_HANDLE_VALUE;
}

void WriteText(HANDLE output, const std::wstring& text) {
    DWORD written = 0;
    if (WriteConsoleW(output, text.c_str(), static_cast<DWORD>(text.size()), &written, nullptr)) return;
    const std::string bytes = Narrow(text);  // a file or a pipe
    WriteFile(output, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

// A GUI program has no console of its own, but can attach to its parent's. That may replace the standard
// handles.
void WriteToParentConsole(const std::wstring& text) {
    constexpr DWORD kStandardHandles[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
    HANDLE saved[std::size(kStandardHandles)];
    std::ranges::transform(kStandardHandles, saved, GetStdHandle);
    if (!AttachConsole(ATTACH_PARENT_PROCESS)) return;
    const UniqueHandle console(
        CreateFileW(L"CONOUT$", GENERIC_WRITE, FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    if (console) WriteText(console.Get(), text);
    FreeConsole();
    for (size_t i = 0; i < std::size(kStandardHandles); ++i)
        SetStdHandle(kStandardHandles[i], saved[i]);
}

}  // namespace

void ReportError(const std::wstring& text) noexcept {
    (void)Guard([&] {
        const std::wstring lines = text + L'\n';
        OutputDebugStringW(lines.c_str());
        if (const HANDLE standardError = GetStdHandle(STD_ERROR_HANDLE); IsValidHandle(standardError)) {
            WriteText(standardError, lines);
        } else {
            WriteToParentConsole(lines);
        }
    });
}

}  // namespace tarvik
