#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/owners.h"

namespace tarvik {

// How the user wants to print.
struct PrintSettings {
    std::wstring printer;
    std::vector<BYTE> devMode;  // DEVMODEW and the driver's data; empty for the driver's defaults
    std::optional<std::pair<int, int>> range;  // first and last page, from 1
    int copies = 1;
    bool collate = false;  // copy by copy, not page by page

    const DEVMODEW* DevMode() const {
        return devMode.empty() ? nullptr : reinterpret_cast<const DEVMODEW*>(devMode.data());
    }
};

}  // namespace tarvik
