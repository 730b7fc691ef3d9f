#include "page_control/accessibility/node_actions.h"

#include <string_view>

#include "base/embedded_text.h"
#include "page_control/accessibility/json_fields.h"

namespace tarvik {

extern const EmbeddedText kNodeActionScript;

void NodeActions::Add(std::int64_t element, const char* action, const std::string& text) {
    const Json arguments = {{{"value", action}}, {{"value", text}}};
    queue_([this, alive = alive_, element, arguments] {
        if (!*alive) return;
        target_.Post("DOM.resolveNode", {{"backendNodeId", element}},
                     [this, alive, arguments](const Json* result) {
                         if (*alive && result) Call(Field(Field(*result, "object"), "objectId"), arguments);
                     });
    });
}

void NodeActions::Call(const Json& object, const Json& arguments) {
    // A user gesture, because the page may, for example, enter the full screen.
    target_.Post("Runtime.callFunctionOn", {{"functionDeclaration", kNodeActionScript.Text()},
                                            {"objectId", object},
                                            {"arguments", arguments},
                                            {"userGesture", true},
                                            {"silent", true}});
    target_.Post("Runtime.releaseObject", {{"objectId", object}});
}

}  // namespace tarvik
