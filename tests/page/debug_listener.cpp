#include "tests/page/debug_listener.h"

#include <iterator>

#include "tests/support/test.h"

namespace tarvik {

namespace {

constexpr DWORD kSize = 4096;

// What writers put into the shared memory.
struct Message {
    DWORD process;
    char text[kSize - sizeof(DWORD)];
};

UniqueHandle MakeEvent(const wchar_t* name) {
    return UniqueHandle(CreateEventW(nullptr, FALSE, FALSE, name));
}

}  // namespace

DebugListener::DebugListener()
    : mapping_(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, kSize, L"DBWIN_BUFFER")) {
    EXPECT_NE(GetLastError(), static_cast<DWORD>(ERROR_ALREADY_EXISTS)) << "somebody else listens";
    view_ = UniqueView(MapViewOfFile(mapping_.Get(), FILE_MAP_READ, 0, 0, kSize));
    bufferFree_ = MakeEvent(L"DBWIN_BUFFER_READY");
    dataReady_ = MakeEvent(L"DBWIN_DATA_READY");
    stop_ = MakeEvent(nullptr);
    SetEvent(bufferFree_.Get());
    thread_ = std::thread(&DebugListener::Listen, this);
}

DebugListener::~DebugListener() {
    SetEvent(stop_.Get());
    thread_.join();
}

DebugListener& DebugListener::Shared() {
    static DebugListener shared;
    return shared;
}

// As one that has something to write, which waits until what is there has been heard.
void DebugListener::CatchUp() {
    constexpr DWORD kPatience = 10'000;
    if (WaitForSingleObject(bufferFree_.Get(), kPatience) == WAIT_OBJECT_0) SetEvent(bufferFree_.Get());
}

void DebugListener::Listen() {
    const HANDLE events[] = {dataReady_.Get(), stop_.Get()};
    while (WaitForMultipleObjects(2, events, FALSE, INFINITE) == WAIT_OBJECT_0) {
        Hear();
        SetEvent(bufferFree_.Get());
    }
}

void DebugListener::Hear() {
    const auto* const message = static_cast<const Message*>(view_.Get());
    std::string text(message->text, strnlen(message->text, std::size(message->text)));
    if (text.ends_with('\n')) text.pop_back();
    const std::lock_guard lock(lock_);
    lines_.push_back({message->process, std::move(text)});
}

std::vector<std::string> DebugListener::Lines(DWORD process) const {
    const std::lock_guard lock(lock_);
    std::vector<std::string> lines;
    for (const Line& line : lines_) {
        if (line.process == process) lines.push_back(line.text);
    }
    return lines;
}

}  // namespace tarvik
