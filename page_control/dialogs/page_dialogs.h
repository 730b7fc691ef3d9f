#pragma once

#include "page_control/dialogs/downloads.h"
#include "page_control/dialogs/file_chooser.h"
#include "page_control/dialogs/sign_in.h"

namespace tarvik {

// The dialogs that a page opens through the engine, for the time of a target.
struct PageDialogs {
    PageDialogs(HWND window, PageTarget& target, FileChooser::Scheduler whenActive, Downloads::Report report)
        : window(window),
          queue(target.EnginePointer()),
          fileChooser(window, target, queue, std::move(whenActive)),
          downloads(window, target, queue, std::move(report)),
          signIn(window, target, queue) {}

    // Lets the user choose a value for a field; null if he cancels.
    void ChooseValue(const Json& field, std::function<void(const Json& value)> onChoice);

    HWND window;
    DialogQueue queue;
    FileChooser fileChooser;
    Downloads downloads;
    SignIn signIn;
};

}  // namespace tarvik
