#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// With commas: "65,535".
inline std::wstring WithCommas(ULONGLONG number) {
    std::wstring text = std::to_wstring(number);
    for (size_t at = text.size(); at > 3;)
        text.insert(at -= 3, 1, L',');
    return text;
}

}  // namespace tarvik
