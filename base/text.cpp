#include "base/text.h"

#include "base/owners.h"

namespace tarvik {

bool EqualsIgnoreCase(std::wstring_view left, std::wstring_view right) {
    return CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                                static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

std::wstring SystemText(HRESULT status) {
    wchar_t* buffer = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        static_cast<DWORD>(status), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    const UniqueLocal owned(buffer);
    std::wstring text(buffer ? buffer : L"", length);
    while (!text.empty() && (text.back() <= L' ' || text.back() == L'.'))
        text.pop_back();
    return text;
}

// Only backslashes in front of a quote need escaping.
std::wstring QuoteArgument(std::wstring_view text) {
    std::wstring quoted = L"\"";
    size_t backslashes = 0;
    for (const wchar_t character : text) {
        if (character == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        quoted += character;
    }
    return quoted.append(backslashes, L'\\') + L'"';
}

}  // namespace tarvik
