#pragma once

#include <string>
#include <string_view>

#include "tarvik/bstr.h"

// Encodes and decodes the texts in streams.
namespace tarvik {

enum class TextEncoding { kUtf8, kUnicode, kAnsi };

// `utf8`, `unicode` or `ansi` in any case; another name throws E_INVALIDARG.
TextEncoding ParseEncoding(std::wstring_view name);

// Appends a NUL in `unicode` and `ansi`, but not in `utf8`.
std::string EncodeText(std::wstring_view text, TextEncoding encoding);

struct DecodedText {
    Bstr text;
    size_t consumed;  // in bytes
};

// Neither consumes nor returns NULs at the end; others are part of the text.
DecodedText DecodeText(std::string_view bytes, TextEncoding encoding);

}  // namespace tarvik
