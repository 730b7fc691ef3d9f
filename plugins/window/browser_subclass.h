#pragma once

#include <windows.h>

#include "atl/window.h"

namespace tarvik {

// The part that a page takes in the messages of the window it is drawn in: while sizing is on, a band along
// its edges sizes the top-level window in the place of a frame.
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

// The part of a frame that a point of the client area stands for, such as HTTOPLEFT; 0 inside of the band.
LRESULT HitCode(const RECT& client, POINT point);

}  // namespace tarvik
