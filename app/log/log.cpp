#include "app/log/log.h"

#include <cstdarg>
#include <cstdio>
#include <string>

namespace tarvik {

Logger processLog = {TARVIK_LOG_FLAGS, nullptr};

namespace {

std::wstring FormatList(const wchar_t* format, va_list values) {
    va_list again;
    va_copy(again, values);
    const int length = _vscwprintf(format, again);
    va_end(again);
    if (length < 0) return {};
    std::wstring text(static_cast<size_t>(length) + 1, L'\0');
    _vsnwprintf(text.data(), text.size(), format, values);
    text.pop_back();
    return text;
}

std::wstring Format(const wchar_t* format, ...) {
    va_list values;
    va_start(values, format);
    std::wstring text = FormatList(format, values);
    va_end(values);
    return text;
}

std::wstring TimeStamp() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return Format(L"[%04d-%02d-%02d %02d:%02d:%02d] ", now.wYear, now.wMonth, now.wDay, now.wHour,
                  now.wMinute, now.wSecond);
}

void Write(const Logger& logger, const std::wstring& line) {
    if (logger.flags & kLogToFile) {
        DWORD written = 0;
        WriteFile(logger.file, line.data(), static_cast<DWORD>(line.size() * sizeof(wchar_t)), &written,
                  nullptr);
    } else {
        OutputDebugStringW(line.c_str());
    }
}

}  // namespace

void Log(const Logger& logger, DWORD level, int line, const char* label, const wchar_t* format,
         ...) noexcept {
    if (!(logger.flags & level)) return;
    try {
        std::wstring text = logger.flags & kLogTimeStamp ? TimeStamp() : std::wstring();
        text += Format(L"(%04d) %hs", line, label);
        if (format) {
            va_list values;
            va_start(values, format);
            text += L' ' + FormatList(format, values);
            va_end(values);
        }
        Write(logger, text + L'\n');
    } catch (...) {
        // Out of memory: drop the line.
    }
}

}  // namespace tarvik
