#pragma once

#include <string>
#include <string_view>

// The clipboard format "HTML Format": UTF-8 after a header with the offsets of its parts in bytes. The
// fragment is what was copied, the rest its context. Independent of the Windows headers.
namespace tarvik {

// With `html` as the fragment.
std::string ToHtmlFormat(std::string_view html);

// The fragment after the start of its context, which may contain styles, or the table of a fragment of rows.
// If the offsets are wrong, all that follows the header.
std::string FromHtmlFormat(std::string_view format);

}  // namespace tarvik
