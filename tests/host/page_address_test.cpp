#include "host/page_address.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

struct Resolution {
    const wchar_t* location;
    const wchar_t* url;
    const wchar_t* page;
};

constexpr Resolution kResolutions[] = {
    {L"file:///C:/x/y/index.html", L"http://e/a", L"http://e/a"},
    {L"file:///C:/x/y/index.html", L"D:\\z.html", L"D:\\z.html"},
    {L"file:///C:/x/y/index.html?q=1#z", L"a/b.html", L"C:\\x\\y\\a/b.html"},
    {L"file:///C:/x/y/index.html?q=1#z", L"..\\c.html", L"C:\\x\\c.html"},
    {L"file:///C:/x/y/index.html#a?b", L"c.html", L"C:\\x\\y\\c.html"},
    {L"FILE:///C:/my%20x/%C3%A4/index.html#z", L"c.html", L"C:\\my x\\\u00e4\\c.html"},
    {L"file:///C:/100%/index.html", L"c.html", L"C:\\100%\\c.html"},
    {L"http://e/x/index.html", L"c.html", L""},
    {L"HTTPS://e/x/index.html", L"c.html", L""},
    {L"about:blank", L"c.html", L"c.html"},
    {L"", L"c.html", L"c.html"},
};

TEST(PageAddress, ResolvesAgainstTheLocationOfThePage) {
    for (const auto& row : kResolutions) {
        EXPECT_EQ(ResolveAgainst(row.url, row.location), row.page) << Narrow(row.location);
    }
}

TEST(PageAddress, AcceptsUrlsAndFilesThatExist) {
    const TempFolder folder;
    const std::wstring page = folder.Write(L"page.html", "");
    EXPECT_TRUE(PageExists(page + L"#top"));
    EXPECT_TRUE(PageExists(L"http://nowhere/page.html"));
    EXPECT_FALSE(PageExists(page + L"?query"));
    EXPECT_FALSE(PageExists(folder.Write(L"a#b.html", ""))) << "what follows the # is no part of the name";
    EXPECT_FALSE(PageExists(L""));
}

}  // namespace
}  // namespace tarvik
