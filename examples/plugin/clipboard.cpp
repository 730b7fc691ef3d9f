// window.external.clipboard: the system's clipboard.
//
//     text              the text on the clipboard, or null; can be written
//     formats()         an array of the names of the formats on the clipboard
//     onchange          a function (text), called after each change, also by this page; null for none
//
// A retained plug-in: each window has one object, which survives navigation.

#include <windows.h>
#include <commctrl.h>

#include <memory>

#include <tarvik/core.h>

namespace {

// Opens the clipboard, and waits up to a second while another program has it open.
class OpenClipboardScope {
  public:
    explicit OpenClipboardScope(HWND owner) {
        for (int tries = 0; !OpenClipboard(owner); ++tries) {
            if (tries == 100) tarvik::ThrowLastError();
            Sleep(10);
        }
    }
    OpenClipboardScope(const OpenClipboardScope&) = delete;
    OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;
    ~OpenClipboardScope() { CloseClipboard(); }
};

// Locks a global memory block for reading or writing.
class LockedMemory {
  public:
    explicit LockedMemory(HGLOBAL memory)
        : memory_(memory), text_(static_cast<wchar_t*>(GlobalLock(memory))) {
        if (!text_) tarvik::ThrowLastError();
    }
    LockedMemory(const LockedMemory&) = delete;
    LockedMemory& operator=(const LockedMemory&) = delete;
    ~LockedMemory() { GlobalUnlock(memory_); }

    wchar_t* Text() const { return text_; }
    size_t Length() const { return wcsnlen(text_, GlobalSize(memory_) / sizeof(wchar_t)); }

  private:
    HGLOBAL memory_;
    wchar_t* text_;
};

struct FreeMemory {
    void operator()(HGLOBAL memory) const { GlobalFree(memory); }
};
using Memory = std::unique_ptr<void, FreeMemory>;

Memory CopyOf(const std::wstring& text) {
    const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    Memory memory(GlobalAlloc(GMEM_MOVEABLE, bytes));
    if (!memory) throw std::bad_alloc();
    memcpy(LockedMemory(memory.get()).Text(), text.c_str(), bytes);
    return memory;
}

std::wstring NameOf(UINT format) {
    wchar_t name[100];
    if (GetClipboardFormatNameW(format, name, ARRAYSIZE(name)) > 0) return name;
    switch (format) {  // the system's predefined formats have no names
        case CF_UNICODETEXT:
            return L"text";
        case CF_BITMAP:
            return L"bitmap";
        case CF_HDROP:
            return L"files";
        default:
            return L"#" + std::to_wstring(format);
    }
}

class Clipboard : public tarvik::Plugin<Clipboard> {
  public:
    static std::span<const tarvik::Member<Clipboard>> Members() {
        static constexpr auto members = tarvik::NumberedMembers({
            tarvik::Property<&Clipboard::Text, &Clipboard::SetText>(L"text"),
            tarvik::Property<&Clipboard::OnChange, &Clipboard::SetOnChange>(L"onchange"),
            tarvik::Method<&Clipboard::Formats>(L"formats"),
        });
        return members;
    }

    Clipboard() {
        // A message-only window receives the changes. It belongs to the main thread, which creates it here.
        listener_ =
            CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        if (!listener_) tarvik::ThrowLastError();
        SetWindowSubclass(listener_, OnMessage, 0, reinterpret_cast<DWORD_PTR>(this));
        AddClipboardFormatListener(listener_);
    }

    // Runs when the browser window is destroyed. Afterwards, nothing may call this object any more.
    ~Clipboard() override {
        RemoveWindowSubclass(listener_, OnMessage, 0);
        DestroyWindow(listener_);
    }

    std::optional<std::wstring> Text() {
        const OpenClipboardScope open(listener_);
        const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
        if (!memory) return std::nullopt;
        const LockedMemory locked(memory);
        return std::wstring(locked.Text(), locked.Length());
    }

    void SetText(const std::wstring& text) {
        Memory memory = CopyOf(text);  // may throw, so before the clipboard is emptied
        const OpenClipboardScope open(listener_);
        if (!EmptyClipboard() || !SetClipboardData(CF_UNICODETEXT, memory.get())) tarvik::ThrowLastError();
        static_cast<void>(memory.release());  // the clipboard owns it now
    }

    tarvik::ScriptObject Formats() {
        tarvik::ScriptObject names = NewArray();
        const OpenClipboardScope open(listener_);
        for (UINT format = EnumClipboardFormats(0); format != 0; format = EnumClipboardFormats(format))
            names.Push(NameOf(format));
        return names;
    }

    tarvik::ScriptObject OnChange() { return onChange_; }
    void SetOnChange(const tarvik::ScriptObject& function) { onChange_ = function; }

  private:
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR self) {
        if (message == WM_CLIPBOARDUPDATE) reinterpret_cast<Clipboard*>(self)->ReportChange();
        return DefSubclassProc(window, message, wParam, lParam);
    }

    // The function belongs to a page, which may have been left while this plug-in lives on, so a function
    // that fails is dropped. The function may also set another one, or release this plug-in, so both are
    // held during the call.
    void ReportChange() {
        const tarvik::ComPtr<IUnknown> keepAlive(AsUnknown());
        const tarvik::ScriptObject function = onChange_;
        if (!function) return;
        std::optional<std::wstring> text;
        if (FAILED(tarvik::Guard([&] { text = Text(); }))) return;  // the clipboard failed, not the function
        const HRESULT status = tarvik::Guard([&] { function(text); });
        if (FAILED(status) && onChange_.AsDispatch() == function.AsDispatch())
            onChange_ = tarvik::ScriptObject();
    }

    HWND listener_ = nullptr;
    tarvik::ScriptObject onChange_;
};

}  // namespace

TARVIK_PLUGIN(Clipboard, L"clipboard", TVK::kRetainedPlugin)
