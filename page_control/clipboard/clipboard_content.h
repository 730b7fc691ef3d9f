#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tarvik {

// What both clipboards can hold; what is empty is absent.
struct ClipboardContent {
    std::string text;
    std::string html;
    std::vector<BYTE> png;

    friend bool operator==(const ClipboardContent&, const ClipboardContent&) = default;
};

}  // namespace tarvik
