#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "page_control/dialogs/dialog_queue.h"

namespace tarvik {

// Prints a page as a PDF file, for whose place a dialog asks. Main thread.
class PdfPrint {
  public:
    // `queue` and `target` outlive this.
    PdfPrint(HWND window, PageTarget& target, DialogQueue& queue)
        : window_(window), target_(target), queue_(queue) {}

    // The page gets its events `beforeprint` and `afterprint`, also if the user cancels. Ignored while the
    // page is being printed.
    void Start(const std::wstring& title);

  private:
    void Save(const std::wstring& title, const std::string& base64);

    HWND window_;
    PageTarget& target_;
    DialogQueue& queue_;
    bool busy_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
