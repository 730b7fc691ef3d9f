#include "plugins/zip/member_path.h"

#include <gtest/gtest.h>

namespace tarvik {
namespace {

using namespace std::string_view_literals;

TEST(MemberPath, TakesNamesThatStayInside) {
    for (const std::wstring_view name :
         {L"a.txt"sv, L"a/b/c.txt"sv, L"a\\b"sv, L"folder/"sv, L"./"sv, L"./a"sv, L"a/./b"sv, L"a//b"sv,
          L".hidden"sv, L"..a"sv, L"a.."sv, L"a..b/c"sv, L"con\u00E9.txt"sv, L"console"sv, L"com10.txt"sv,
          L"com0"sv, L"nul_"sv, L"\u6F22\u5B57/\u65E5.txt"sv}) {
        EXPECT_TRUE(StaysInside(name)) << testing::PrintToString(std::wstring(name));
    }
}

TEST(MemberPath, RefusesNamesThatLeave) {
    for (const std::wstring_view name : {L""sv,
                                         L".."sv,
                                         L"../a"sv,
                                         L"..\\a"sv,
                                         L"a/../../b"sv,
                                         L"a\\..\\..\\b"sv,
                                         L"a/.."sv,
                                         L"../"sv,
                                         L"... /a"sv,
                                         L".. /a"sv,
                                         L".. ./a"sv,
                                         L" /a"sv,
                                         L"/a"sv,
                                         L"\\a"sv,
                                         L"//server/share/a"sv,
                                         L"\\\\?\\C:\\a"sv,
                                         L"C:a"sv,
                                         L"C:\\a"sv,
                                         L"c:/a"sv,
                                         L"a:stream"sv,
                                         L"a/b:c:$DATA"sv,
                                         L"a\0b"sv,
                                         L"\0"sv,
                                         L"NUL"sv,
                                         L"nul.txt"sv,
                                         L"a/Con"sv,
                                         L"aux /b"sv,
                                         L"a\\lpt1.x.y"sv,
                                         L"COM\u00B2"sv,
                                         L"conout$"sv,
                                         L"prn .txt"sv}) {
        EXPECT_FALSE(StaysInside(name)) << testing::PrintToString(std::wstring(name));
    }
}

}  // namespace
}  // namespace tarvik
