#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

// The system's clipboard, as another program uses it.
namespace tarvik {

// Empty if the format is missing.
std::string ClipboardBytes(UINT format);
std::wstring ClipboardText();

// Replace what it holds.
void PutOnClipboard(const std::vector<std::pair<UINT, std::string>>& formats);
void SetClipboardText(const std::wstring& text);

}  // namespace tarvik
