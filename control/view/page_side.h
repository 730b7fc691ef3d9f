#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "control/engine/devtools.h"

namespace tarvik {

// The view's end in the documents of a page: view.js.
class PageSide {
  public:
    // Before the target's first navigation.
    explicit PageSide(PageTarget& target);

    // Calls a function of view.js, with arguments as JSON between commas. The handler gets its result; null
    // if it has none or cannot be reached.
    using Handler = std::function<void(const Json& result)>;
    void Ask(std::string_view function, std::string_view arguments, Handler handler);

    // The same as a command of the engine, for who sends it himself.
    Json Command(std::string_view function, std::string_view arguments) const;

    // Text that the page has copied comes as an event of the session.
    bool IsCopied(std::string_view method, const Json& params) const;

  private:
    PageTarget& target_;
    const std::string binding_;
    const std::string core_;
};

}  // namespace tarvik
