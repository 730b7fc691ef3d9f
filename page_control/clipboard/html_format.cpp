#include "page_control/clipboard/html_format.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>

namespace tarvik {

namespace {

constexpr std::string_view kBefore = "<html>\r\n<body>\r\n<!--StartFragment-->";
constexpr std::string_view kAfter = "<!--EndFragment-->\r\n</body>\r\n</html>";
constexpr std::string_view kSpace = " \t\r\n";
constexpr size_t kDigits = 10;

// The header has the same length for all offsets.
std::string Header(size_t html, size_t fragment, size_t fragmentEnd, size_t htmlEnd) {
    std::string header = "Version:0.9\r\n";
    const auto append = [&](std::string_view name, size_t offset) {
        const std::string digits = std::to_string(offset);
        header.append(name)
            .append(kDigits - std::min(kDigits, digits.size()), '0')
            .append(digits)
            .append("\r\n");
    };
    append("StartHTML:", html);
    append("EndHTML:", htmlEnd);
    append("StartFragment:", fragment);
    append("EndFragment:", fragmentEnd);
    return header;
}

// The value of a line of the header; none if it is missing or negative, which means the same.
std::optional<size_t> Offset(std::string_view header, std::string_view name) {
    const size_t line = header.find(name);
    if (line == header.npos) return std::nullopt;
    const char* const end = header.data() + header.size();
    size_t offset = 0;
    const auto [stop, error] = std::from_chars(header.data() + line + name.size(), end, offset);
    return error == std::errc() ? std::optional(offset) : std::nullopt;
}

std::string_view WithoutSpaceAtEnd(std::string_view text) {
    return text.substr(0, text.find_last_not_of(kSpace) + 1);
}

std::string_view ContextBefore(std::string_view text) {
    constexpr std::string_view kMarker = "<!--StartFragment-->";
    text = WithoutSpaceAtEnd(text);
    if (text.ends_with(kMarker)) text.remove_suffix(kMarker.size());
    return WithoutSpaceAtEnd(text);
}

}  // namespace

std::string ToHtmlFormat(std::string_view html) {
    const size_t start = Header(0, 0, 0, 0).size();
    const size_t fragment = start + kBefore.size();
    const size_t end = fragment + html.size();
    return Header(start, fragment, end, end + kAfter.size()).append(kBefore).append(html).append(kAfter);
}

std::string FromHtmlFormat(std::string_view format) {
    format = format.substr(0, format.find('\0'));
    const size_t markup = std::min(format.find('<'), format.size());
    const std::string_view header = format.substr(0, markup);
    const size_t start = Offset(header, "StartFragment:").value_or(0);
    const size_t end = Offset(header, "EndFragment:").value_or(0);
    if (start < markup || end < start || end > format.size()) return std::string(format.substr(markup));
    const size_t html = Offset(header, "StartHTML:").value_or(start);
    std::string result;
    if (html >= markup && html < start) result = ContextBefore(format.substr(html, start - html));
    return result.append(format.substr(start, end - start));
}

}  // namespace tarvik
