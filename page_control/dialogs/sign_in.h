#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>

#include "page_control/dialogs/dialog_queue.h"

namespace tarvik {

// Asks the user for the name and the password that a web server or a proxy requires. Without an answer the
// request shows what the server says to strangers. Main thread.
class SignIn {
  public:
    // `queue` and `target` outlive this. The target's Fetch domain reports the requests.
    SignIn(HWND window, PageTarget& target, DialogQueue& queue);

  private:
    struct Answer {
        unsigned number = 0;  // 0 before the first one
        Json response;
    };

    void OnRequired(const event::AuthRequired& required);
    void Respond(const event::AuthRequired& required, unsigned answerBefore);

    HWND window_;
    PageTarget& target_;
    DialogQueue& queue_;
    std::map<std::string, Answer> answers_;  // by the description of who asks
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    EventRouter::Subscription required_;
};

}  // namespace tarvik
