#pragma once

#include <windows.h>

#include <vector>

#include "page_control/view/input_queue.h"
#include "page_control/view/system_pointers.h"

namespace tarvik {

// A contact as DevTools describes it. `id` is a small number.
Json TouchPointOf(const TouchRecord& record, int id, POINT origin, double scale);

// Forwards the touch contacts of a window to a page, which gets touch events and PointerEvents for them. The
// engine recognizes taps, scrolling and pinching, but not that a contact rests: its release is then a click
// of the right button.
class TouchInput {
  public:
    TouchInput(HWND window, PageTarget& target, ViewScript& script, InputQueue& queue)
        : window_(window), target_(target), script_(script), queue_(queue) {}

    // For messages of touch pointers.
    void HandleMessage(UINT message, WPARAM wParam);

  private:
    struct Contact {
        UINT32 pointer;
        Json point;
        POINT start;
        DWORD time;
        bool isTap = true;  // alone, and at one place
    };
    using Contacts = std::vector<Contact>;

    Contacts::iterator Find(UINT32 pointer);
    Json Describe(const TouchRecord& record, int id) const;
    int UnusedId() const;
    Json Points() const;
    void OnDown(const TouchRecord& record);
    void OnMove(Contact& contact, const TouchRecord& record);
    void OnUp(Contacts::iterator contact, const TouchRecord& record);
    void Cancel();
    void EndRest(const Json& point);
    void Send(InputQueue::DeliveryMode mode, const char* type, Json points, std::vector<Json> retry = {});

    HWND window_;
    PageTarget& target_;
    ViewScript& script_;
    InputQueue& queue_;
    Contacts contacts_;
};

}  // namespace tarvik
