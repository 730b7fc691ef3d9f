#pragma once

#include <string>

namespace tarvik {

// Deletes a folder with all that is in it, without a question and without a report; what is in use stays.
void DeleteFolder(const std::wstring& path);

}  // namespace tarvik
