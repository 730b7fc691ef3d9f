#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "page_control/dialogs/field_value.h"

namespace tarvik {

// A field of a page for a date, a time or a colour.
struct Field {
    std::string type;
    std::string value;  // as HTML writes it; it may be empty
    FieldLimits limits;
    std::vector<std::string> suggestions;
};

// Shows a dialog for a value, modal to `owner`, until it is closed. Returns the value, empty if the user
// clears the field; none if he cancels.
std::optional<std::string> ChooseFieldValue(HWND owner, const Field& field);

}  // namespace tarvik
