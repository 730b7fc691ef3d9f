#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "page_control/dialogs/dialog_queue.h"
#include "page_control/dialogs/download.h"

namespace tarvik {

// The downloads of a page: a dialog asks where to save each, a window shows its progress, and a text for the
// developer reports its end. Main thread.
class Downloads {
  public:
    using Report = std::function<void(const std::wstring& text)>;
    // `queue` and `target` outlive this.
    Downloads(HWND window, PageTarget& target, DialogQueue& queue, Report report);
    // Cancels those that are not over.
    ~Downloads();
    Downloads(const Downloads&) = delete;
    Downloads& operator=(const Downloads&) = delete;

  private:
    void OnBegin(const event::DownloadWillBegin& begin);
    void OnProgress(const event::DownloadProgress& progress);
    void AskForPlace(const std::string& id);
    void OnTimer();
    void Finish(const std::string& id, const Download& download);
    void ShowFailure(const std::wstring& name);

    HWND window_;
    PageTarget& target_;
    DialogQueue& queue_;
    const Report report_;
    std::map<std::string, std::shared_ptr<Download>> downloads_;  // that are not over, by id
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    MessageWindow timer_;
    EventRouter::Subscription begin_;
    EventRouter::Subscription progress_;
};

}  // namespace tarvik
