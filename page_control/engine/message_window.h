#pragma once

#include <windows.h>

#include <functional>

#include "tarvik/owners.h"

namespace tarvik {

// A message-only window that passes its messages to a function.
class MessageWindow {
  public:
    using Handler = std::function<void(UINT message, WPARAM wParam)>;
    explicit MessageWindow(Handler handler);
    ~MessageWindow();
    MessageWindow(const MessageWindow&) = delete;
    MessageWindow& operator=(const MessageWindow&) = delete;

    HWND Get() const { return window_.Get(); }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    const Handler handler_;
    UniqueWindow window_;
};

}  // namespace tarvik
