#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace tarvik {

// The language and country of a locale, like "en-US". Nothing if the system does not know them; the last
// error is then set.
std::optional<std::wstring> LanguageOf(LCID locale);

}  // namespace tarvik
