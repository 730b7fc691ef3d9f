#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "control/engine/devtools.h"

namespace tarvik {

// The view's end in the documents of a page: view.js.
class PageSide {
  public:
    // Before the target's first navigation. Where text is not selectable, fields are all the same, and what
    // the page itself says is.
    explicit PageSide(PageTarget& target, bool textIsSelectable = true);

    // Calls a function of view.js, with arguments as JSON between commas. The handler gets its result; null
    // if it has none or cannot be reached.
    using Handler = std::function<void(const Json& result)>;
    void Ask(std::string_view function, std::string_view arguments, Handler handler);

    // The same as a command of the engine, for who sends it himself.
    Json Command(std::string_view function, std::string_view arguments) const;

    // What view.js tells of its own accord comes as an event of the session.
    struct Word {
        enum class Kind { kCopied, kNewWindow } kind;
        std::wstring text;  // that was copied; the address that a new window is asked for
    };
    std::optional<Word> Hear(std::string_view method, const Json& params) const;

  private:
    PageTarget& target_;
    const std::string binding_;
    const std::string core_;
};

}  // namespace tarvik
