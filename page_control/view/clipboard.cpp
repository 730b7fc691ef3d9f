#include "page_control/view/clipboard.h"

#include <cstring>

#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr int kAttempts = 5;
constexpr DWORD kRetryInterval = 5;  // milliseconds

// Programs that monitor the clipboard open it for a moment after each change.
bool OpenWithRetry(HWND owner) {
    for (int attempts = 1; !OpenClipboard(owner); ++attempts) {
        if (attempts == kAttempts) return false;
        Sleep(kRetryInterval);
    }
    return true;
}

class OpenedClipboard {
  public:
    explicit OpenedClipboard(HWND owner) : open_(OpenWithRetry(owner)) {}
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
    // The memory is another program's and may lack the terminator.
    std::wstring taken(text, wcsnlen(text, GlobalSize(memory) / sizeof(wchar_t)));
    GlobalUnlock(memory);
    return taken;
}

}  // namespace

void CopyToClipboard(HWND owner, const std::wstring& text) {
    const OpenedClipboard clipboard(owner);
    const size_t size = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = clipboard ? GlobalAlloc(GMEM_MOVEABLE, size) : nullptr;
    if (!memory) return;
    std::memcpy(GlobalLock(memory), text.c_str(), size);
    GlobalUnlock(memory);
    EmptyClipboard();
    // On success the clipboard owns the memory.
    if (!SetClipboardData(CF_UNICODETEXT, memory)) GlobalFree(memory);
}

void QueueClipboardText(HWND owner, InputQueue& queue, const ViewScript& script) {
    const std::string text = Json(Narrow(ClipboardText(owner))).dump();
    queue.Add(InputQueue::DeliveryMode::kAwaitReply, "Runtime.evaluate",
              script.EvaluateParameters("setClipboard", text));
}

bool ClipboardHasText() {
    return IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE;
}

}  // namespace tarvik
