#include "plugins/stream/stream_text.h"

#include <algorithm>

#include "base/text.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

UINT CodePageOf(TextEncoding encoding) {
    return encoding == TextEncoding::kUtf8 ? CP_UTF8 : CP_ACP;
}

std::string_view BytesOf(std::wstring_view units) {
    return {reinterpret_cast<const char*>(units.data()), units.size() * sizeof(wchar_t)};
}

// From bytes, because the code units of a stream may be unaligned.
Bstr TextOfUnits(std::string_view bytes) {
    Bstr text;
    text.Attach(SysAllocStringByteLen(bytes.data(), static_cast<UINT>(bytes.size())));
    if (text.IsNull()) throw std::bad_alloc();
    return text;
}

}  // namespace

TextEncoding ParseEncoding(std::wstring_view name) {
    if (EqualsIgnoreCase(name, L"utf8")) return TextEncoding::kUtf8;
    if (EqualsIgnoreCase(name, L"unicode")) return TextEncoding::kUnicode;
    if (EqualsIgnoreCase(name, L"ansi")) return TextEncoding::kAnsi;
    throw StatusError(E_INVALIDARG);
}

std::string EncodeText(std::wstring_view text, TextEncoding encoding) {
    if (encoding == TextEncoding::kUnicode) return std::string(BytesOf(text)).append(sizeof(wchar_t), '\0');
    std::string bytes = Narrow(text, CodePageOf(encoding));
    if (encoding == TextEncoding::kAnsi) bytes += '\0';
    return bytes;
}

DecodedText DecodeText(std::string_view bytes, TextEncoding encoding) {
    size_t consumed = bytes.find_last_not_of('\0') + 1;
    if (encoding != TextEncoding::kUnicode)
        return {Bstr(Widen(bytes.substr(0, consumed), CodePageOf(encoding))), consumed};
    // The high byte of the last unit may be zero. Half a unit at the end is consumed, but not in the text.
    consumed = std::min(consumed + consumed % 2, bytes.size());
    return {TextOfUnits(bytes.substr(0, consumed - consumed % 2)), consumed};
}

}  // namespace tarvik
