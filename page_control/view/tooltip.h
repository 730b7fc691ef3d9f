#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "page_control/view/view_script.h"
#include "tarvik/owners.h"

namespace tarvik {

// The tooltip of a page: the title of the element on which the pointer rests. Any input hides it.
class Tooltip {
  public:
    Tooltip(HWND window, ViewScript& script) : window_(window), script_(script) {}
    ~Tooltip();
    Tooltip(const Tooltip&) = delete;
    Tooltip& operator=(const Tooltip&) = delete;

    // A message of the mouse or the keyboard. `point` is the pointer's position in the window.
    void OnInput(UINT message, POINT point);
    void OnTimer();  // kTooltipTimer

  private:
    void Show(const std::wstring& text);
    void Hide();

    HWND window_;
    ViewScript& script_;
    UniqueWindow tip_;  // exists while the tooltip is visible
    POINT point_ = {-1, -1};
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    int rests_ = 0;  // of the pointer; a later one makes the answer of the page obsolete
};

}  // namespace tarvik
