#pragma once

#include <optional>
#include <string>

#include "tarvik/bstr.h"

// The environment of this process, which the programs that it starts inherit.
namespace tarvik {

// Sets DESKTOP, STARTMENU and other variables to the special folders. Skips those that the system cannot
// resolve.
void PublishSpecialFolders();

// Empty if the variable is missing or empty. By design, a value of 520 characters or more reads as an empty
// text, here and in ExpandEnvironment.
std::optional<Bstr> EnvironmentVariable(const std::wstring& name);

// Replaces each %name% with the value of the variable.
std::optional<Bstr> ExpandEnvironment(const std::wstring& text);

}  // namespace tarvik
