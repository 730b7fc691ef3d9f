#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

namespace tarvik {

// Shows a dialog with a button to cancel, modal to `owner`, until `poll`, which is called several times a
// second, returns no text. False if the user cancels, or the owner is destroyed.
bool ShowProgress(HWND owner, const std::wstring& caption,
                  const std::function<std::optional<std::wstring>()>& poll);

}  // namespace tarvik
