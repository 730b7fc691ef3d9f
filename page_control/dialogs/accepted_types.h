#pragma once

#include <string>

namespace tarvik {

// The pattern for a file dialog, like "*.png;*.jpg", for the value of a field's attribute `accept`:
// extensions and MIME types, "image/*" included. Empty if a part has no known extension, because then any
// file may suit.
std::wstring PatternOfAccept(const std::string& accept);

}  // namespace tarvik
