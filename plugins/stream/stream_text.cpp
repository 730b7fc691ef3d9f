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

// From any place in memory: the units of a stream may lie at odd addresses.
Bstr TextOfUnits(std::string_view bytes) {
    Bstr text;
    text.Attach(SysAllocStringByteLen(bytes.data(), static_cast<UINT>(bytes.size())));
    if (text.IsNull()) throw std::bad_alloc();
    return text;
}

}  // namespace

TextEncoding EncodingOf(std::wstring_view name) {
    if (SameIgnoringCase(name, L"utf8")) return TextEncoding::kUtf8;
    if (SameIgnoringCase(name, L"unicode")) return TextEncoding::kUnicode;
    if (SameIgnoringCase(name, L"ansi")) return TextEncoding::kAnsi;
    throw StatusError(E_INVALIDARG);
}

std::string EncodeText(std::wstring_view text, TextEncoding encoding) {
    if (encoding == TextEncoding::kUnicode) return std::string(BytesOf(text)).append(sizeof(wchar_t), '\0');
    std::string bytes = Narrow(text, CodePageOf(encoding));
    if (encoding == TextEncoding::kAnsi) bytes += '\0';
    return bytes;
}

DecodedText DecodeText(std::string_view bytes, TextEncoding encoding) {
    size_t taken = bytes.find_last_not_of('\0') + 1;
    if (encoding != TextEncoding::kUnicode)
        return {Bstr(Widen(bytes.substr(0, taken), CodePageOf(encoding))), taken};
    // The zero byte of the last unit belongs to it. Half a unit at the end is taken, and not in the text.
    taken = std::min(taken + taken % 2, bytes.size());
    return {TextOfUnits(bytes.substr(0, taken - taken % 2)), taken};
}

}  // namespace tarvik
