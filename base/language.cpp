#include "base/language.h"

namespace tarvik {

std::optional<std::wstring> LanguageTag(LCID locale) {
    constexpr int kNameLength = 100;
    wchar_t language[kNameLength] = {};
    wchar_t country[kNameLength] = {};
    if (!GetLocaleInfoW(locale, LOCALE_SISO639LANGNAME, language, kNameLength) ||
        !GetLocaleInfoW(locale, LOCALE_SISO3166CTRYNAME, country, kNameLength))
        return std::nullopt;
    return std::wstring(language) + L"-" + country;
}

}  // namespace tarvik
