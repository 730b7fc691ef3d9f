#pragma once

#include <string>

namespace tarvik {

// Deletes a folder with its contents, without prompting the user. Files in use stay behind; errors are not
// reported.
void DeleteFolder(const std::wstring& path);

}  // namespace tarvik
