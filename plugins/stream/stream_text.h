#pragma once

#include <string>
#include <string_view>

#include "tarvik/bstr.h"

// Encodes and decodes text in streams.
namespace tarvik {

enum class TextEncoding { kUtf8, kUnicode, kAnsi };  // kUnicode is UTF-16LE

// Parses `utf8`, `unicode` or `ansi`, ignoring case. Throws E_INVALIDARG for another name.
TextEncoding ParseEncoding(std::wstring_view name);

// Appends a NUL in `unicode` and `ansi`, but not in `utf8`.
std::string EncodeText(std::wstring_view text, TextEncoding encoding);

struct DecodedText {
    Bstr text;
    size_t consumed;  // in bytes
};

// Neither consumes nor returns trailing NULs; others are part of the text.
DecodedText DecodeText(std::string_view bytes, TextEncoding encoding);

}  // namespace tarvik
