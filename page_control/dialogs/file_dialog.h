#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tarvik {

// A dialog of the system for the names of files.
struct FileDialog {
    enum class Purpose { kOpenFile, kOpenFiles, kOpenFolder, kSaveFile } purpose = Purpose::kOpenFile;
    std::wstring name;     // proposed
    std::wstring pattern;  // of the files that are listed at first, like "*.png;*.jpg"; empty for all
};

// Shows a dialog, modal to `owner`, until it is closed. Returns the chosen paths; none if the user cancels.
std::vector<std::wstring> ChooseFiles(HWND owner, const FileDialog& dialog);

}  // namespace tarvik
