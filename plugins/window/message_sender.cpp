#include "plugins/window/message_sender.h"

#include <windows.h>

#include "host/plugin_registry/window_numbers.h"
#include "plugins/window/shared_block.h"
#include "plugins/window/window_properties.h"

namespace tarvik {

namespace {

// The delivery of one message to one window. Handlers may send more messages, so deliveries can nest.
class Delivery {
  public:
    explicit Delivery(HWND target) : target_(target), outer_(innermost) { innermost = this; }
    ~Delivery() { innermost = outer_; }
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;

    void Send(const wchar_t* name, std::wstring_view payload) {
        for (Delivery* outer = outer_; outer; outer = outer->outer_) {
            if (outer->target_ == target_ && outer->block_) outer->ReleaseBlock();
        }
        block_ = SharedBlock::Make(target_, name, payload);
        if (block_) SendMessageW(target_, kBusMessage, GetCurrentProcessId(), block_.Size());
    }

  private:
    // Only one block for a window can exist at a time, because blocks are named after their window. A window
    // handles sent messages in order, so it has read the block once it has handled WM_NULL.
    void ReleaseBlock() {
        SendMessageW(target_, WM_NULL, 0, 0);
        block_ = {};
    }

    static inline Delivery* innermost = nullptr;

    const HWND target_;
    Delivery* const outer_;
    SharedBlock block_;
};

}  // namespace

bool SendToReceivers(const wchar_t* identifier, const wchar_t* name, std::wstring_view payload) {
    bool found = false;
    for (const HWND window : TopLevelWindows()) {
        if (!HasWindowProperty(window, identifier, WindowProperty::kReceives)) continue;
        found = true;
        if (name) Delivery(window).Send(name, payload);
    }
    return found;
}

}  // namespace tarvik
