#include "tests/support/clipboard.h"

#include <cstring>

#include "tests/support/waiting.h"

namespace tarvik {

namespace {

// The program under test may have it open.
bool Open() {
    return WaitFor([] { return OpenClipboard(nullptr) != FALSE; });
}

}  // namespace

std::string ClipboardBytes(UINT format) {
    std::string bytes;
    if (!Open()) return bytes;
    if (const HANDLE memory = GetClipboardData(format)) {
        bytes.assign(static_cast<const char*>(GlobalLock(memory)), GlobalSize(memory));
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return bytes;
}

std::wstring ClipboardText() {
    const std::string bytes = ClipboardBytes(CF_UNICODETEXT);
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
    return text.c_str();
}

void PutOnClipboard(const std::vector<std::pair<UINT, std::string>>& formats) {
    if (!Open()) return;
    EmptyClipboard();
    for (const auto& [format, bytes] : formats) {
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
        std::memcpy(GlobalLock(memory), bytes.data(), bytes.size());
        GlobalUnlock(memory);
        SetClipboardData(format, memory);
    }
    CloseClipboard();
}

void SetClipboardText(const std::wstring& text) {
    const auto* const bytes = reinterpret_cast<const char*>(text.c_str());
    PutOnClipboard({{CF_UNICODETEXT, {bytes, (text.size() + 1) * sizeof(wchar_t)}}});
}

}  // namespace tarvik
