#include "tarvik/menu.h"

#include "tests/plugins/support/plugin_of_window.h"

namespace tarvik {
namespace {

// A menu object and its native menu.
class Menu {
  public:
    explicit Menu(IDispatch* object = nullptr) : object_(Query<TVK::IMenu>(object)) {}

    operator IDispatch*() const { return object_.Get(); }
    HMENU Native() const { return object_->GetMenu(); }
    UINT State(int position) const {
        return GetMenuState(Native(), static_cast<UINT>(position), MF_BYPOSITION) & 0xFF;
    }
    UINT Id(int position) const { return GetMenuItemID(Native(), position); }
    int Exec(UINT id) const { return object_->Exec(id); }

    // Whether the item was appended; the member returns the opposite.
    bool Append(const OptionObject& options) const {
        return CallText(*this, L"appendMenu", static_cast<IDispatch*>(options)) == "BOOL false";
    }
    bool Add(const wchar_t* name, IDispatch* function) const {
        return Append(OptionObject().Set(L"name", name).Set(L"callback", function));
    }
    bool AddMenu(const wchar_t* name, IDispatch* menu) const {
        return Append(OptionObject().Set(L"name", name).Set(L"subMenu", menu));
    }

  private:
    ComPtr<TVK::IMenu> object_;
};

class MenuPlugin : public PluginOfWindow {
  protected:
    MenuPlugin() : PluginOfWindow(L"menu") {}

    Menu Make() const { return Menu(CallMember(plugin_.Get(), L"createMenu").value.pdispVal); }

    const ComPtr<Recorder> function_ = MakeCom<Recorder>();
};

TEST_F(MenuPlugin, AppendsItemsAsTheOptionsSpecify) {
    const Menu menu = Make(), inner = Make();
    const auto item = [&](const wchar_t* option, auto&& value) {
        return OptionObject().Set(L"name", L"a").Set(L"callback", function_).Set(option, value);
    };
    const std::pair<OptionObject, UINT> good[] = {
        {item(L"context", 1), MF_ENABLED},
        {item(L"gray", true), MF_GRAYED},
        {item(L"gray", 1), MF_ENABLED},
        {item(L"subMenu", 5), MF_ENABLED},
        {OptionObject().Set(L"name", L"a"), MF_GRAYED},
        {item(L"gray", true).Set(L"subMenu", static_cast<IDispatch*>(inner)), MF_POPUP | MF_GRAYED},
    };
    int count = 0;
    for (const auto& [options, state] : good) {
        EXPECT_TRUE(menu.Append(options)) << count;
        EXPECT_EQ(menu.State(count), state) << count;
        ++count;
    }
    for (const OptionObject& bad :
         {OptionObject(), OptionObject().Set(L"name", 5), item(L"subMenu", function_)})
        EXPECT_FALSE(menu.Append(bad));
    EXPECT_TRUE(menu.Append(OptionObject().Set(L"separator", true)));
    EXPECT_EQ(CallText(menu, L"getItemCount"), "I4 " + std::to_string(count + 1));
    EXPECT_TRUE(inner.Add(L"b", function_.Get()));
    EXPECT_GE(menu.Id(0), 2000u);
    EXPECT_EQ(inner.Id(0), menu.Id(0) + 10) << "every call consumes an id";
}

TEST_F(MenuPlugin, FindsAndEnablesItemsByName) {
    const Menu menu = Make(), inner = Make();
    menu.Append(OptionObject().Set(L"separator", true));
    menu.Add(L"\u00C4pfel", function_.Get());
    menu.AddMenu(L"More", inner);
    menu.Add(L"more", function_.Get());
    for (const bool on : {false, true}) {
        EXPECT_EQ(CallText(menu, L"enable", L"\u00E4PFEL", on), "BOOL true");
        EXPECT_EQ(menu.State(1), static_cast<UINT>(on ? MF_ENABLED : MF_GRAYED));
    }
    EXPECT_EQ(CallText(menu, L"enable", L"MORE", false), "BOOL true");
    EXPECT_EQ(menu.State(2), static_cast<UINT>(MF_POPUP | MF_GRAYED));
    EXPECT_EQ(menu.State(3), static_cast<UINT>(MF_ENABLED)) << "only the first item of that name changes";
    for (const wchar_t* none : {L"", L"mor"})
        EXPECT_EQ(CallText(menu, L"enable", none, false), "BOOL false");
    EXPECT_EQ(CallMember(menu, L"getSubMenu", L"mORE").value.pdispVal, static_cast<IDispatch*>(inner));
    EXPECT_EQ(CallText(menu, L"getSubMenu", L"\u00C4pfel"), "EMPTY");
    EXPECT_THAT(CallMember(menu, L"getSubMenu", L"").status, HasStatus(E_INVALIDARG));
}

TEST_F(MenuPlugin, NeverContainsItself) {
    const ObjectCheck objects;
    const Menu first = Make(), second = Make(), third = Make();
    EXPECT_TRUE(first.AddMenu(L"second", second) && second.AddMenu(L"third", third));
    for (const Menu& menu : {first, second, third})
        EXPECT_FALSE(third.AddMenu(L"around", menu));
    EXPECT_TRUE(first.AddMenu(L"third again", third)) << "menus may share a submenu";
}

TEST_F(MenuPlugin, OutlivesTheMenusThatContainIt) {
    const Menu shared = Make();
    shared.Add(L"a", function_.Get());
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(Make().AddMenu(L"shared", shared));
    EXPECT_EQ(GetMenuItemCount(shared.Native()), 1);
}

TEST_F(MenuPlugin, NestsDeeperThanTheStack) {
    const ObjectCheck objects;
    const Menu top = Make();
    Menu menu = top;
    for (int i = 0; i < 9500; ++i) {
        const Menu below = Make();
        ASSERT_TRUE(menu.AddMenu(L"below", below)) << i;
        menu = below;
    }
    menu.Add(L"a", function_.Get());
    EXPECT_EQ(top.Exec(menu.Id(0)), 0);
}

}  // namespace
}  // namespace tarvik
