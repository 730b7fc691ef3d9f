#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "page_control/dialogs/dialog_queue.h"
#include "page_control/dialogs/file_dialog.h"

namespace tarvik {

// Opens the system's dialog where a page asks for files: by a click on <input type=file>, or its method
// click() or showPicker(). Main thread.
class FileChooser {
  public:
    // Calls a function when the page is active.
    using Scheduler = std::function<void(std::function<void()>)>;

    // `queue` and `target` outlive this.
    FileChooser(HWND window, PageTarget& target, DialogQueue& queue, Scheduler whenActive);

  private:
    enum class State {
        kIdle,
        kChoosing,    // a dialog is open or waits for its turn
        kCancelling,  // the engine is to cancel the next dialog
    };

    void OnOpened(int field);
    void Show(int field, const Json& node);
    void SetFiles(int field, const std::vector<std::wstring>& paths);
    void Cancel(int field);
    void Intercept(State state);

    HWND window_;
    PageTarget& target_;
    DialogQueue& queue_;
    const Scheduler whenActive_;
    State state_ = State::kIdle;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    EventRouter::Subscription opened_;
};

}  // namespace tarvik
