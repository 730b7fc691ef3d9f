#pragma once

#include <windows.h>

#include "page_control/engine/devtools.h"

namespace tarvik {

// The window in which the engine shows a target. It is on no screen, but a page reads its outer size and its
// position, and whether it is minimized.
class EngineWindow {
  public:
    // Queries the engine. Throws StatusError.
    explicit EngineWindow(PageTarget& target);

    // The bounds of a minimized window change when it is restored.
    void SetBounds(POINT position, SIZE size);
    void SetMinimized(bool minimized);

  private:
    void Post(const Json& bounds);

    PageTarget& target_;
    const Json id_;
    Json bounds_ = Json::object();
    bool minimized_ = false;
};

}  // namespace tarvik
