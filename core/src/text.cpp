#include "tarvik/text.h"

namespace tarvik {

std::wstring Widen(std::string_view text, UINT codePage) {
    const int given = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(codePage, 0, text.data(), given, nullptr, 0);
    std::wstring wide(static_cast<size_t>(needed), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), given, wide.data(), needed);
    return wide;
}

std::string Narrow(std::wstring_view text, UINT codePage) {
    const int given = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(codePage, 0, text.data(), given, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<size_t>(needed), '\0');
    WideCharToMultiByte(codePage, 0, text.data(), given, narrow.data(), needed, nullptr, nullptr);
    return narrow;
}

std::wstring DecimalText(long long number) {
    return Widen(std::to_string(number));
}

}  // namespace tarvik
