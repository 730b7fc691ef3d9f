#include "plugins/window/message_sender.h"

#include <windows.h>

#include "plugins/window/main_subclass.h"
#include "plugins/window/shared_block.h"
#include "plugins/window/window_marks.h"

namespace tarvik {

namespace {

// One message on its way to one window. While the window deals with it, script may send more: then deliveries
// stand one inside the other.
class Delivery {
  public:
    explicit Delivery(HWND target) : target_(target), outer_(innermost) { innermost = this; }
    ~Delivery() { innermost = outer_; }
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;

    void Run(const wchar_t* name, std::wstring_view payload) {
        for (Delivery* outer = outer_; outer; outer = outer->outer_) {
            if (outer->target_ == target_ && outer->block_) outer->GiveUpBlock();
        }
        block_ = SharedBlock::Make(target_, name, payload);
        if (block_) SendMessageW(target_, kBusMessage, GetCurrentProcessId(), block_.Size());
    }

  private:
    // A block's name allows one to a window at a time. A window takes messages in the order they were sent,
    // so when it has answered a further one, it has read the block.
    void GiveUpBlock() {
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
        if (!HasMark(window, identifier, WindowMark::kReceives)) continue;
        found = true;
        if (name) Delivery(window).Run(name, payload);
    }
    return found;
}

}  // namespace tarvik
