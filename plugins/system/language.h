#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace tarvik {

// Language and country of a locale, like "en-US".
std::optional<std::wstring> LanguageOf(LCID locale);

}  // namespace tarvik
