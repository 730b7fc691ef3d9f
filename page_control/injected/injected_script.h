#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/embedded_text.h"
#include "page_control/engine/devtools.h"

namespace tarvik {

extern const EmbeddedText kBridgeScript;  // the files of bridge/
extern const EmbeddedText kViewScript;    // the files of view/

// A script that the engine runs in every document of a target before the page's own scripts. It posts to the
// host through a DevTools binding; the host calls the functions of its core, an object in the top document.
// Binding and core have names that no page can guess.
class InjectedScript {
  public:
    // `body` is that of a function with the parameters bindingName, coreName and options. Waits for the
    // engine, because a navigation could overtake the commands. Throws StatusError. `onPost` receives what
    // the script posts, and the id of the execution context that it does so in.
    using PostHandler = std::function<void(const std::string& payload, int contextId)>;
    InjectedScript(PageTarget& target, const EmbeddedText& body, const Json& options, PostHandler onPost);

    // JavaScript that calls a function of the core, with arguments separated by commas.
    std::string CallText(std::string_view function, std::string_view arguments) const;

  private:
    const std::string core_;
    EventRouter::Subscription posts_;
};

}  // namespace tarvik
