#include "plugins/mouse/mouse_plugin.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

// tests/page tests clicks, with a page that receives them.
TEST(MousePlugin, MovesThePointerAlongOneAxis) {
    const auto plugin = MakeCom<CMousePlugin>();
    const auto place = [&] {
        return ResultText(GetMember(plugin.Get(), L"x")) + ResultText(GetMember(plugin.Get(), L"y"));
    };
    SetCursorPos(50, 60);
    EXPECT_EQ(place(), "I4 50I4 60");
    EXPECT_EQ(ResultText(PutMember(plugin.Get(), L"x", 250)), "BOOL true");
    EXPECT_EQ(place(), "I4 250I4 60");
    EXPECT_EQ(ResultText(PutMember(plugin.Get(), L"y", L"170.2")), "BOOL true");
    EXPECT_EQ(place(), "I4 250I4 170");
}

}  // namespace
}  // namespace tarvik
