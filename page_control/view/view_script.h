#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "page_control/injected/injected_script.h"
#include "page_control/injected/protocol.h"

namespace tarvik {

// The injected script of the view: what a page receives, copies and shows under the pointer.
class ViewScript {
  public:
    // An event that the script has posted.
    struct PageEvent {
        enum class Type {
            kCopied,
            kReading,
            kNewWindow,
            kSize,
            kFullScreen,
            kPointerLock,
            kFocus,
            kPicker,
            kSuggestions,
            kPress,
        } type;
        std::wstring text;  // the field
    };
    using EventHandler = std::function<void(const PageEvent& event)>;

    // Before the target's first navigation. If text is not selectable, it still is in fields and where the
    // page's styles say so.
    ViewScript(PageTarget& target, bool textIsSelectable, EventHandler onEvent);

    // Calls a function of the script, with arguments as JSON separated by commas. The handler receives the
    // result; null if there is none or the page cannot be reached.
    using Handler = std::function<void(const Json& result)>;
    using Function = protocol::Name<protocol::Kind::kViewFunction>;
    void Call(Function function, std::string_view arguments, Handler handler) {
        Evaluate(function, arguments, false, std::move(handler));
    }
    // Waits for a promise, which a paused page does not resolve.
    void CallAsync(Function function, std::string_view arguments, Handler handler) {
        Evaluate(function, arguments, true, std::move(handler));
    }

  private:
    void Evaluate(Function function, std::string_view arguments, bool awaitsPromise, Handler handler);

    PageTarget& target_;
    const InjectedScript script_;
};

}  // namespace tarvik
