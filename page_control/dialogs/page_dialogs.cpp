#include "page_control/dialogs/page_dialogs.h"

#include "page_control/dialogs/field_dialog.h"

namespace tarvik {

void PageDialogs::ChooseValue(const Json& field, std::function<void(const Json& value)> onChoice) {
    const Field description = {field.value("type", ""), field.value("value", ""), field.value("min", ""),
                               field.value("max", "")};
    queue.Add([window = window, description, onChoice = std::move(onChoice)] {
        const auto value = ChooseFieldValue(GetAncestor(window, GA_ROOT), description);
        onChoice(value ? Json(*value) : Json());
    });
}

}  // namespace tarvik
