#pragma once

#include <windows.h>

#include "tarvik/owners.h"

namespace tarvik {

// The nested windows of a control, with the class names that other programs look for: "Shell Embedding",
// "Shell DocObject View" and, for the page, "Internet Explorer_Server".
class PageWindows {
  public:
    class Handler {
      public:
        virtual ~Handler() = default;
        // Handles a message of the innermost window; true if `result` is the return value.
        virtual bool HandlePageMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) = 0;
    };

    // Throws StatusError. The handler outlives the windows.
    PageWindows(HWND parent, const RECT& rectangle, Handler& handler);

    HWND Outer() const { return outer_.Get(); }
    HWND Server() const { return server_; }
    void Move(const RECT& rectangle);
    bool Show(bool visible);  // true if this changed it

  private:
    UniqueWindow outer_;
    HWND view_ = nullptr;
    HWND server_ = nullptr;
};

}  // namespace tarvik
