#include "archive/entry_path.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(EntryPath, StaysInside) {
    for (const wchar_t* name : {L"a.txt", L"a/b/c.txt", L"a\\b", L"folder/", L"./", L"a/./b", L"a//b",
                                L".hidden", L"..a", L"a..", L"a..b/c", L"con\u00E9.txt", L"console",
                                L"com10.txt", L"com0", L"nul_", L"\u6F22\u5B57/\u65E5.txt"})
        EXPECT_TRUE(IsSafeEntryPath(name)) << testing::PrintToString(name);
    // Names that leave the folder; drives, streams and devices.
    for (const wchar_t* name :
         {L"",       L"..",          L"../a",      L"a/../../b",   L"a\\..\\..\\b", L"a/..",
          L"... /a", L".. /a",       L".. ./a",    L" /a",         L"/a",           L"\\a",
          L"C:a",    L"c:/a",        L"a:stream",  L"a/b:c:$DATA", L"nul.txt",      L"a/Con",
          L"aux /b", L"a\\lpt1.x.y", L"COM\u00B2", L"conout$",     L"prn .txt"})
        EXPECT_FALSE(IsSafeEntryPath(name)) << testing::PrintToString(name);
    EXPECT_FALSE(IsSafeEntryPath(std::wstring_view(L"a\0b", 3)));
}

}  // namespace
}  // namespace tarvik
