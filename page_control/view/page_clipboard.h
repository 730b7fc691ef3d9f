#pragma once

#include <functional>
#include <memory>

#include "page_control/clipboard/clipboard_sync.h"
#include "page_control/view/input_queue.h"
#include "page_control/view/view_script.h"

namespace tarvik {

// Keeps the clipboards of the engine and the system the same for what a page copies, pastes and reads.
class PageClipboard {
  public:
    PageClipboard(PageTarget& target, ViewScript& script, InputQueue& queue);
    ~PageClipboard();
    PageClipboard(const PageClipboard&) = delete;
    PageClipboard& operator=(const PageClipboard&) = delete;

    // Queues the system's content for the engine, before the input that pastes it.
    void QueueUpdate();

    // The page has begun to copy, or waits to read. The script gives such a request an id.
    void OnCopy(const std::wstring& id);
    void OnRead(const std::wstring& id);

  private:
    void WaitForCopy(const std::string& id, std::function<void(bool isKnown)> onCopied);
    void OnCopied(bool isKnown);
    ClipboardSync::Done Settle(const std::string& id);

    ViewScript& script_;
    InputQueue& queue_;
    const std::shared_ptr<ClipboardSync> sync_;
    std::function<void(bool isKnown)> onCopied_;  // of the copy that the page is queried about
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
