#pragma once

#include <string>
#include <string_view>

#include "tarvik/bstr.h"

// Text in streams.
namespace tarvik {

enum class TextEncoding { kUtf8, kUnicode, kAnsi };

// `utf8`, `unicode` or `ansi` in any case; another word throws E_INVALIDARG.
TextEncoding EncodingOf(std::wstring_view name);

// A zero ends the text in `unicode` and `ansi`, and not in `utf8`.
std::string EncodeText(std::wstring_view text, TextEncoding encoding);

struct DecodedText {
    Bstr text;
    size_t taken;  // bytes
};

// Zeros at the end are not taken; those between are part of the text.
DecodedText DecodeText(std::string_view bytes, TextEncoding encoding);

}  // namespace tarvik
