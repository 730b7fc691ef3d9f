#pragma once

#include <windows.h>

#include "atl/window.h"

namespace tarvik {

// Subclasses the page's window. While sizing is on, a border along its edges sizes the top-level window, as a
// frame would.
class CBrowserSubclassWindow : public CWindowImpl {
  public:
    bool Attach(HWND serverWindow, HWND mainWindow, IUnknown* owner);
    void SetSizing(bool sizing) { sizing_ = sizing; }

  protected:
    bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

  private:
    HWND mainWindow_ = nullptr;
    bool sizing_ = false;
};

// The hit code of a point of the client area, such as HTTOPLEFT; 0 inside the border.
LRESULT HitCode(const RECT& client, POINT point);

}  // namespace tarvik
