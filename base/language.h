#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace tarvik {

// The language and country of a locale, like "en-US". Empty if the system has no names for them; the last
// error is then set.
std::optional<std::wstring> LanguageTag(LCID locale);

}  // namespace tarvik
