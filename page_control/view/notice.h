#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace tarvik {

// A text that a window shows in place of a page, with buttons for the mouse and the keyboard.
class Notice {
  public:
    struct Button {
        std::wstring label;
        std::function<void()> onPress;  // may hide the notice
    };

    explicit Notice(HWND window) : window_(window) {}

    void Show(const std::wstring& text, std::vector<Button> buttons);
    void Hide();
    bool IsShown() const { return !text_.empty(); }

    void Paint(HDC target) const;

    // While the notice is shown, it takes the mouse and the keys, except those with Alt. True if the message
    // was handled; then `result` is its return value. May destroy the notice.
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

  private:
    static constexpr size_t kNone = static_cast<size_t>(-1);
    struct Layout {
        RECT text;
        std::vector<RECT> buttons;
    };
    Layout Arrange(HDC target) const;
    size_t ButtonAt(LPARAM position) const;
    void OnKey(WPARAM key, bool isRepeat);
    void OnRelease(LPARAM position);
    void Focus(size_t button);
    void Press(size_t button);
    void Repaint() const { InvalidateRect(window_, nullptr, FALSE); }

    HWND window_;
    std::wstring text_;
    std::vector<Button> buttons_;
    size_t focus_ = 0;
    size_t held_ = kNone;  // by the mouse
};

}  // namespace tarvik
