#include "log_viewer/debug_output.h"

#include <cstring>

#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr DWORD kSize = 4096;

// The layout of the shared memory.
struct Buffer {
    DWORD process;
    char text[kSize - sizeof(DWORD)];
};

UniqueHandle MakeEvent(const wchar_t* name) {
    UniqueHandle event(CreateEventW(nullptr, FALSE, FALSE, name));
    if (!event) ThrowLastError();
    return event;
}

}  // namespace

std::optional<DebugOutput> DebugOutput::Open() {
    UniqueHandle mapping(
        CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, kSize, L"DBWIN_BUFFER"));
    const bool isTaken = GetLastError() == ERROR_ALREADY_EXISTS;
    if (!mapping) ThrowLastError();
    if (isTaken) return std::nullopt;
    return DebugOutput(std::move(mapping));
}

DebugOutput::DebugOutput(UniqueHandle mapping)
    : mapping_(std::move(mapping)),
      view_(MapViewOfFile(mapping_.Get(), FILE_MAP_READ, 0, 0, kSize)),
      bufferFree_(MakeEvent(L"DBWIN_BUFFER_READY")),
      dataReady_(MakeEvent(L"DBWIN_DATA_READY")) {
    if (!view_) ThrowLastError();
    SetEvent(bufferFree_.Get());
}

DebugMessage DebugOutput::Take() {
    const auto* const buffer = static_cast<const Buffer*>(view_.Get());
    DebugMessage message{buffer->process, {buffer->text, strnlen(buffer->text, std::size(buffer->text))}};
    SetEvent(bufferFree_.Get());
    return message;
}

}  // namespace tarvik
