#include "page_control/view/page_clipboard.h"

#include <utility>

#include "tarvik/text.h"

namespace tarvik {

PageClipboard::PageClipboard(PageTarget& target, ViewScript& script, InputQueue& queue)
    : script_(script), queue_(queue), sync_(ClipboardSync::Of(target.EnginePointer())) {}

// Other pages wait for the end of a copy. A page that is closed does not report it.
PageClipboard::~PageClipboard() {
    alive_.reset();
    OnCopied(false);
}

void PageClipboard::QueueUpdate() {
    queue_.AddTask([sync = sync_](std::function<void()> done) {
        sync->CopyToEngine([done = std::move(done)](bool) { done(); });
    });
}

void PageClipboard::OnCopy(const std::wstring& id) {
    const auto wait = [this, alive = std::weak_ptr(alive_), id = Narrow(id)](auto onCopied) {
        alive.expired() ? onCopied(false) : WaitForCopy(id, std::move(onCopied));
    };
    sync_->CopyToSystem(wait, Settle(Narrow(id)));
}

void PageClipboard::OnRead(const std::wstring& id) {
    sync_->CopyToEngine(Settle(Narrow(id)));
}

void PageClipboard::WaitForCopy(const std::string& id, std::function<void(bool isKnown)> onCopied) {
    onCopied_ = std::move(onCopied);
    script_.CallAsync("copy", id, [this, alive = std::weak_ptr(alive_)](const Json& isKnown) {
        if (!alive.expired()) OnCopied(isKnown == true);
    });
}

void PageClipboard::OnCopied(bool isKnown) {
    if (const auto onCopied = std::exchange(onCopied_, nullptr)) onCopied(isKnown);
}

ClipboardSync::Done PageClipboard::Settle(const std::string& id) {
    return [this, alive = std::weak_ptr(alive_), id](bool succeeded) {
        if (!alive.expired())
            script_.Call("settle", id + (succeeded ? ",true" : ",false"), [](const Json&) {});
    };
}

}  // namespace tarvik
