#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace tarvik {

// A field of a page for a date, a time or a colour.
struct Field {
    std::string type;
    std::string value;  // as HTML writes it; it may be empty
    std::string least;
    std::string most;
};

// Shows a dialog for a value, modal to `owner`, until it is closed. Returns the value, empty if the user
// clears the field; none if he cancels.
std::optional<std::string> ChooseFieldValue(HWND owner, const Field& field);

}  // namespace tarvik
