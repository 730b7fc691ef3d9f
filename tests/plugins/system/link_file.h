#pragma once

#include <string>

namespace tarvik {

// A link file as its published format tells it, read without the system.
struct LinkFile {
    bool isLink = false;
    std::string target;  // in the narrow code page
    std::wstring folder;
    std::wstring arguments;
    std::wstring icon;
    int iconIndex = 0;
};

LinkFile ReadLink(const std::wstring& path);

}  // namespace tarvik
