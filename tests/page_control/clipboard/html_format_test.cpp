#include "page_control/clipboard/html_format.h"

#include <cstdio>
#include <cstring>

#include "tests/support/test.h"

namespace tarvik {
namespace {

// The bytes between two offsets of a header.
std::string_view Part(const std::string& format, const char* start, const char* end) {
    const auto offset = [&](const char* name) {
        return std::stoul(format.substr(format.find(name) + strlen(name)));
    };
    return std::string_view(format).substr(offset(start), offset(end) - offset(start));
}

TEST(HtmlFormat, CountsBytes) {
    const std::string format = ToHtmlFormat("<b>\xC3\xBC</b>");
    EXPECT_EQ(Part(format, "StartFragment:", "EndFragment:"), "<b>\xC3\xBC</b>");
    EXPECT_EQ(
        Part(format, "StartHTML:", "EndHTML:"),
        "<html>\r\n<body>\r\n<!--StartFragment--><b>\xC3\xBC</b><!--EndFragment-->\r\n</body>\r\n</html>");
    EXPECT_TRUE(format.ends_with("</html>"));
    EXPECT_EQ(FromHtmlFormat(format), "<html>\r\n<body><b>\xC3\xBC</b>");
}

// What other programs write: no context, a table around the fragment, memory that is too large, wrong
// offsets.
TEST(HtmlFormat, ReadsTheFragmentInItsContext) {
    const auto read = [](int html, int start, int end, const char* markup) {
        char header[100] = {};
        snprintf(
            header, sizeof header,
            "Version:1.0\nStartHTML:%05d\nEndHTML:99999\nStartFragment:%05d\nEndFragment:%05d\nSourceURL:x\n",
            html, start, end);
        return FromHtmlFormat(std::string(header) + markup);
    };
    constexpr int kHeader = 92;
    EXPECT_EQ(read(-1, kHeader, kHeader + 8, "<i>a</i><!--EndFragment-->"), "<i>a</i>");
    EXPECT_EQ(read(kHeader, kHeader + 18, kHeader + 22, "<style>a</style>\r\n<td></table>"),
              "<style>a</style><td>");
    EXPECT_EQ(read(kHeader, kHeader + 29, kHeader + 33, "<table>\r\n<!--StartFragment--><td></table>"),
              "<table><td>");
    EXPECT_EQ(FromHtmlFormat(ToHtmlFormat("x") + std::string(3, '\0')), "<html>\r\n<body>x");
    for (const int end : {0, kHeader - 1, kHeader + 5})
        EXPECT_EQ(read(kHeader, kHeader, end, "<hr>"), "<hr>") << end;
    EXPECT_EQ(read(kHeader, 3, kHeader + 4, "<hr>"), "<hr>");
    EXPECT_EQ(FromHtmlFormat("StartFragment:99999999999999999999\nEndFragment:x\n<hr>"), "<hr>");
    EXPECT_EQ(FromHtmlFormat("Version:0.9"), "");
    EXPECT_EQ(FromHtmlFormat(""), "");
}

}  // namespace
}  // namespace tarvik
