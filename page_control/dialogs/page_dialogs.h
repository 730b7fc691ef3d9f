#pragma once

#include "page_control/dialogs/downloads.h"
#include "page_control/dialogs/file_chooser.h"

namespace tarvik {

// The dialogs that a page opens through the engine, for the time of a target.
struct PageDialogs {
    PageDialogs(HWND window, PageTarget& target, Downloads::Report report)
        : queue(target.EnginePointer()),
          fileChooser(window, target, queue),
          downloads(window, target, queue, std::move(report)) {}

    DialogQueue queue;
    FileChooser fileChooser;
    Downloads downloads;
};

}  // namespace tarvik
