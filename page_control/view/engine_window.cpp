#include "page_control/view/engine_window.h"

#include <utility>

namespace tarvik {

EngineWindow::EngineWindow(PageTarget& target)
    : target_(target),
      id_(target.Engine()
              .Call("", "Browser.getWindowForTarget", {{"targetId", target.Id()}})
              .at("windowId")) {}

void EngineWindow::SetBounds(POINT position, SIZE size) {
    bounds_ = {{"left", position.x}, {"top", position.y}, {"width", size.cx}, {"height", size.cy}};
    if (!minimized_) Post(bounds_);
}

void EngineWindow::SetMinimized(bool minimized) {
    if (std::exchange(minimized_, minimized) == minimized) return;
    Post({{"windowState", minimized ? "minimized" : "normal"}});
    if (!minimized) Post(bounds_);
}

void EngineWindow::Post(const Json& bounds) {
    target_.Engine().Post("", "Browser.setWindowBounds", {{"windowId", id_}, {"bounds", bounds}});
}

}  // namespace tarvik
