#include "control/view/clipboard.h"

#include <cstring>

#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr int kTries = 5;
constexpr DWORD kPause = 5;  // milliseconds

// Programs that watch the clipboard hold it for a moment after each change.
bool OpenSoon(HWND owner) {
    for (int tries = 1; !OpenClipboard(owner); ++tries) {
        if (tries == kTries) return false;
        Sleep(kPause);
    }
    return true;
}

class OpenedClipboard {
  public:
    explicit OpenedClipboard(HWND owner) : open_(OpenSoon(owner)) {}
    ~OpenedClipboard() {
        if (open_) CloseClipboard();
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    explicit operator bool() const { return open_; }

  private:
    bool open_;
};

std::wstring ClipboardText(HWND owner) {
    const OpenedClipboard clipboard(owner);
    const HANDLE memory = clipboard ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    const auto* text = memory ? static_cast<const wchar_t*>(GlobalLock(memory)) : nullptr;
    if (!text) return {};
    // The memory is another program's, which may have forgotten the end.
    std::wstring taken(text, wcsnlen(text, GlobalSize(memory) / sizeof(wchar_t)));
    GlobalUnlock(memory);
    return taken;
}

}  // namespace

void PutOnClipboard(HWND owner, const std::wstring& text) {
    const OpenedClipboard clipboard(owner);
    const size_t size = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = clipboard ? GlobalAlloc(GMEM_MOVEABLE, size) : nullptr;
    if (!memory) return;
    std::memcpy(GlobalLock(memory), text.c_str(), size);
    GlobalUnlock(memory);
    EmptyClipboard();
    // From here on the memory is the clipboard's.
    if (!SetClipboardData(CF_UNICODETEXT, memory)) GlobalFree(memory);
}

void BringClipboard(HWND owner, InputQueue& queue, const PageSide& page) {
    const std::string text = Json(Narrow(ClipboardText(owner))).dump();
    queue.Add(InputQueue::Care::kDone, "Runtime.evaluate", page.Command("bring", text));
}

bool ClipboardHasText() {
    return IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE;
}

}  // namespace tarvik
