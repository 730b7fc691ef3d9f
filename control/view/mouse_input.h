#pragma once

#include <windows.h>

#include "control/engine/devtools.h"

namespace tarvik {

// The state of Shift, Ctrl, Alt and the Windows key, as DevTools names it.
int KeyModifiers();

// Mouse messages of a window, sent to a page. Moves are sent one at a time, the latest of those that came
// meanwhile; all else in order.
class MouseInput {
  public:
    MouseInput(HWND window, PageTarget& target) : window_(window), target_(target) {}
    ~MouseInput() { *alive_ = false; }
    MouseInput(const MouseInput&) = delete;
    MouseInput& operator=(const MouseInput&) = delete;

    // False if it is no mouse message.
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

    // The page waits: what was under way gets no answer.
    void Reset() { moving_ = false; }

    POINT LastPoint() const { return last_; }

  private:
    struct Button {
        const char* name;
        int bit;
        bool down;
    };
    static bool FindButton(UINT message, WPARAM wParam, Button& button);
    void OnMove(POINT point);
    void OnButton(const Button& button, POINT point);
    void OnWheel(WPARAM wParam, LPARAM lParam, bool horizontal);
    void SendMove();
    void Send(const char* type, POINT point, const char* button, int clicks, Json more = Json::object(),
              DevTools::ReplyHandler onReply = nullptr);
    int CountClicks(const Button& button, POINT point);

    HWND window_;
    PageTarget& target_;
    int buttons_ = 0;
    POINT last_ = {-1, -1};
    bool moving_ = false;   // a move is under way
    bool pending_ = false;  // another one waits for it
    bool tracking_ = false;
    int clicks_ = 0;
    int clickButton_ = 0;
    POINT clickPoint_ = {};
    DWORD clickTime_ = 0;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
