#pragma once

#include <string>

namespace tarvik {

// A link file, parsed by its published format without the system.
struct LinkFile {
    bool isLink = false;
    std::string target;  // in the narrow code page
    std::wstring folder;
    std::wstring arguments;
    std::wstring icon;
    int iconIndex = 0;
};

LinkFile ReadLink(const std::wstring& path);

// A link to C:\windows\notepad.exe with every description of a target that Windows writes: shell items, a
// path on a volume, a relative path, and a path with a variable in the blocks at the end.
struct FullLink {
    std::string upToTexts;
    std::string blocks;
};
FullLink WriteFullLink(const std::wstring& arguments);

}  // namespace tarvik
