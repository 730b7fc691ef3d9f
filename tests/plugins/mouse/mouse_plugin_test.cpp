#include "plugins/mouse/mouse_plugin.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

// Clicks are tested where a page hears of them.
TEST(MousePlugin, MovesThePointerInOneDirection) {
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

TEST(MousePlugin, RefusesWrongArguments) {
    const auto plugin = MakeCom<CMousePlugin>();
    for (const wchar_t* name : {L"isBtnDown", L"click"}) {
        Argument wrong[] = {L"1", 1.5, nullptr, true};
        for (Argument& button : wrong)
            EXPECT_THAT(CallMember(plugin.Get(), name, std::move(button)).status, HasStatus(E_INVALIDARG));
        EXPECT_THAT(CallMember(plugin.Get(), name, L"1", 1).status, HasStatus(E_NOTIMPL));
        EXPECT_THAT(CallMember(plugin.Get(), name, 0, 1, 1, 1).status, HasStatus(E_NOTIMPL));
    }
    EXPECT_THAT(InvokeMember(plugin.Get(), L"x", DISPATCH_PROPERTYPUT, {}).status, HasStatus(E_NOTIMPL));
    EXPECT_THAT(PutMember(plugin.Get(), L"LBTN", 1).status, HasStatus(E_NOTIMPL));
}

}  // namespace
}  // namespace tarvik
