#include "control/view/clipboard.h"

#include <cstring>
#include <string>

#include "base/text.h"

namespace tarvik {

namespace {

constexpr const char* kSelectedText = R"((() => {
  const field = document.activeElement;
  if (field && typeof field.selectionStart === 'number' && field.type !== 'password')
    return field.value.substring(field.selectionStart, field.selectionEnd);
  return String(getSelection());
})())";

class OpenedClipboard {
  public:
    explicit OpenedClipboard(HWND owner) : open_(OpenClipboard(owner) != FALSE) {}
    ~OpenedClipboard() {
        if (open_) CloseClipboard();
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    explicit operator bool() const { return open_; }

  private:
    bool open_;
};

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

std::wstring TakeFromClipboard(HWND owner) {
    const OpenedClipboard clipboard(owner);
    const HANDLE memory = clipboard ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    const auto* text = memory ? static_cast<const wchar_t*>(GlobalLock(memory)) : nullptr;
    if (!text) return {};
    std::wstring taken(text);
    GlobalUnlock(memory);
    return taken;
}

}  // namespace

void CopyFromPage(HWND owner, PageTarget& target) {
    target.Post("Runtime.evaluate", {{"expression", kSelectedText}, {"returnByValue", true}},
                [owner](const Json* result) {
                    if (!result || !result->contains("result")) return;
                    const std::string text = (*result)["result"].value("value", std::string());
                    if (!text.empty() && IsWindow(owner)) PutOnClipboard(owner, Widen(text));
                });
}

void PasteIntoPage(HWND owner, PageTarget& target) {
    const std::wstring text = TakeFromClipboard(owner);
    if (!text.empty()) target.Post("Input.insertText", {{"text", Narrow(text)}});
}

bool ClipboardHasText() {
    return IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE;
}

}  // namespace tarvik
