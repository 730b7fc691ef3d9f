#pragma once

#include <string>

namespace tarvik {

// Deletes a folder with its contents, without prompting the user. Leaves files in use behind; reports no
// errors.
void DeleteFolder(const std::wstring& path);

}  // namespace tarvik
