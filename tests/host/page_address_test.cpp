#include "host/page_address.h"

#include "tarvik/text.h"
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
    {L"file:///C:/x/index.html#/route?x=1", L"data.txt", L"C:\\x\\data.txt"},
    {L"file:///C:/a%23b/100%25%3F/index.html?q#f", L"c.html", L"C:\\a#b\\100%?\\c.html"},
    {L"FILE:///C:/my%20x/%C3%A4/index.html#z", L"c.html", L"C:\\my x\\\u00e4\\c.html"},
    {L"file:///C:/100%/index.html", L"c.html", L"C:\\100%\\c.html"},
    {L"http://e/x/index.html", L"c.html", L""},
    {L"HTTPS://e/x/index.html", L"c.html", L""},
    {L"about:blank", L"c.html", L"c.html"},
    {L"", L"c.html", L"c.html"},
};

TEST(ResolveAgainst, ResolvesUrlsAndPaths) {
    for (const auto& row : kResolutions) {
        EXPECT_EQ(ResolveAgainst(row.url, row.location), row.page) << Narrow(row.location);
    }
}

TEST(PageAddress, AcceptsUrlsAndExistingFiles) {
    const TempFolder folder;
    const std::wstring page = folder.Write(L"page.html", "");
    EXPECT_EQ(PageAddress(page), page);
    EXPECT_EQ(PageAddress(page + L"#top#2"), page + L"#top#2");
    EXPECT_EQ(PageAddress(L"http://nowhere/page.html"), L"http://nowhere/page.html");
    for (const std::wstring& missing :
         {page + L"?query", folder / L"no#page.html", std::wstring(L"#"), std::wstring()})
        EXPECT_EQ(PageAddress(missing), L"") << Narrow(missing);
}

TEST(PageAddress, ConvertsPathsWithAHashToUrls) {
    const TempFolder folder;
    folder.Write(L"C\\page.html", "");  // the folder that is found if the path is cut at the hash
    EXPECT_EQ(PageAddress(folder / L"C# %41\\page.html"), L"");
    const std::wstring page = folder.Write(L"C# %41\\page.html", "");
    for (const wchar_t* fragment : {L"", L"#/route?x=1"}) {
        const std::wstring address = PageAddress(page + fragment);
        EXPECT_THAT(Narrow(address), EndsWith("/C%23%20%2541/page.html" + Narrow(fragment)));
        EXPECT_EQ(ResolveAgainst(L"page.html", address), page);
    }
}

}  // namespace
}  // namespace tarvik
