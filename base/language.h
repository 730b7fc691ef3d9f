#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace tarvik {

// Language and country of a locale, like "en-US". Nothing if the system does not say; the last error tells
// why.
std::optional<std::wstring> LanguageOf(LCID locale);

}  // namespace tarvik
