#include "page_control/clipboard/html_format.h"

#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvik;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string html = FromHtmlFormat(bytes);
    Require(html.size() <= bytes.size() && html.find('\0') == html.npos);
    Require(FromHtmlFormat(ToHtmlFormat(html)).ends_with(html));
    return 0;
}
