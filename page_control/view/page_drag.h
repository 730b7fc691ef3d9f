#pragma once

#include <windows.h>

#include <memory>

#include "page_control/drag/drop_target.h"
#include "page_control/view/frame_buffer.h"
#include "page_control/view/input_queue.h"
#include "page_control/view/mouse_input.h"
#include "page_control/view/view_script.h"

namespace tarvik {

// Drags of a page, which are drags of the system, and drags over the page. The engine reports that the page
// starts one, and leaves the rest to the host.
class PageDrag : public DropReceiver {
  public:
    PageDrag(HWND window, PageTarget& target, ViewScript& script, InputQueue& queue, MouseInput& mouse,
             const FrameBuffer& frameBuffer);
    ~PageDrag() override;
    PageDrag(const PageDrag&) = delete;
    PageDrag& operator=(const PageDrag&) = delete;

    void OnTimer();  // kDragTimer

    // DropReceiver
    void OnDragEnter(const Json& dragData, POINT screen) override;
    DWORD OnDragOver(POINT screen) override;
    void OnDragLeave() override;
    void OnDrop(POINT screen) override;

  private:
    void OnStart(const Json& dragData);
    void Run();
    Pixels Picture(POINT& hotSpot) const;
    void Dispatch(const char* type, POINT point);
    POINT InPage(POINT screen) const;

    HWND window_;
    PageTarget& target_;
    ViewScript& script_;
    InputQueue& queue_;
    MouseInput& mouse_;
    const FrameBuffer& frameBuffer_;
    Json starting_;  // what the page wants to drag
    Json image_;     // as the script describes it
    Json over_;      // what is dragged over the page
    EventRouter::Subscription intercepted_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
