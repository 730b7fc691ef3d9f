#include "page_control/dialogs/page_dialogs.h"

#include "page_control/dialogs/field_dialog.h"

namespace tarvik {

void PageDialogs::ChooseValue(const Json& field, std::function<void(const Json& value)> onChoice) {
    const auto text = [&](const char* name) { return field.value(name, ""); };
    Field description = {
        text("type"), text("value"), {text("min"), text("max"), text("step"), text("base")}, {}};
    for (const Json& suggestion : field.at("list"))
        description.suggestions.push_back(suggestion.get_ref<const std::string&>());
    queue.Add([window = window, description, onChoice = std::move(onChoice)] {
        const auto value = ChooseFieldValue(GetAncestor(window, GA_ROOT), description);
        onChoice(value ? Json(*value) : Json());
    });
}

}  // namespace tarvik
