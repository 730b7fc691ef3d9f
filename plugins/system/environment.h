#pragma once

#include <optional>
#include <string>

#include "tarvik/bstr.h"

// The process's environment: programs that are started inherit it, and nothing of it outlives the process.
namespace tarvik {

// Sets DESKTOP, STARTMENU and others to the folders of this machine. One that cannot be had is left out.
void PublishSpecialFolders();

// Nothing if there is no such variable, or it is empty. A text of 520 characters or more reads as empty; that
// is intended, as it is for expansions.
std::optional<Bstr> EnvironmentVariable(const std::wstring& name);

// The text with a variable's value for each %name%.
std::optional<Bstr> ExpandEnvironment(const std::wstring& text);

}  // namespace tarvik
