#include "host/contract/menu.h"

#include "tests/plugins/support/plugin_of_window.h"
#include "tests/support/silent_object.h"

namespace tarvik {
namespace {

// A menu object and what the system has of it.
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

    // Whether it was done, which script hears the other way round.
    bool Append(const OptionObject& options) const {
        return CallText(*this, L"appendMenu", static_cast<IDispatch*>(options)) == "BOOL false";
    }
    bool Add(const wchar_t* name, IDispatch* function, Argument context = Variant()) const {
        return Append(
            OptionObject().Set(L"name", name).Set(L"callback", function).Set(L"context", std::move(context)));
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

    template <class... Args>
    Menu Make(Args... type) const {
        return Menu(CallMember(plugin_.Get(), L"createMenu", type...).value.pdispVal);
    }

    const ComPtr<Recorder> function_ = MakeCom<Recorder>();
};

TEST_F(MenuPlugin, MakesMenusOfThreeTypes) {
    for (const wchar_t* type : {L"popupMenu", L"TRAYMENU", L"windowMenu"})
        EXPECT_TRUE(IsMenu(Make(type).Native())) << type;
    EXPECT_EQ(CallText(Make(), L"popup"), "BOOL false") << "nothing is in it";
    const Menu bar = Make(L"windowmenu");
    bar.Add(L"a", function_.Get());
    EXPECT_EQ(CallText(bar, L"popup", 10, 10), "BOOL false");
    EXPECT_THAT(CallMember(plugin_.Get(), L"createMenu", L"menu").status, HasStatus(E_NOTIMPL));
    EXPECT_THAT(CallMember(plugin_.Get(), L"createMenu", 1).status, HasStatus(E_INVALIDARG));
    EXPECT_THAT(CallMember(bar, L"popup", L"10").status, HasStatus(E_NOTIMPL)) << "one is too few";
    EXPECT_THAT(CallMember(bar, L"popup", L"10", 10).status, HasStatus(E_INVALIDARG));
}

TEST_F(MenuPlugin, AppendsWhatTheOptionsSay) {
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
    EXPECT_EQ(inner.Id(0), menu.Id(0) + 10) << "every call takes a number";
}

TEST_F(MenuPlugin, RunsTheFunctionOfACommand) {
    const Menu menu = Make(), inner = Make(), innermost = Make();
    menu.Add(L"none", nullptr);
    menu.Add(L"plain", function_.Get());
    menu.Add(L"with context", function_.Get(), L"text");
    menu.AddMenu(L"more", inner);
    inner.AddMenu(L"still more", innermost);
    innermost.Add(L"deep", function_.Get(), nullptr);
    for (const UINT id : {menu.Id(0), menu.Id(1), menu.Id(2), innermost.Id(0)})
        EXPECT_EQ(menu.Exec(id), 0);
    EXPECT_EQ(inner.Exec(menu.Id(1)), 1) << "that of the menu above";
    EXPECT_THAT(function_->Texts(), ElementsAre("", "BSTR text", "NULL"));
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
    EXPECT_EQ(menu.State(3), static_cast<UINT>(MF_ENABLED)) << "the first of the name is meant";
    for (const wchar_t* none : {L"", L"mor"})
        EXPECT_EQ(CallText(menu, L"enable", none, false), "BOOL false");
    EXPECT_EQ(CallMember(menu, L"getSubMenu", L"mORE").value.pdispVal, static_cast<IDispatch*>(inner));
    EXPECT_EQ(CallText(menu, L"getSubMenu", L"\u00C4pfel"), "EMPTY");
    EXPECT_THAT(CallMember(menu, L"getSubMenu", L"").status, HasStatus(E_INVALIDARG));
}

TEST_F(MenuPlugin, IsNeverInItself) {
    const ObjectCheck nothingLeft;
    const Menu first = Make(), second = Make(), third = Make();
    EXPECT_TRUE(first.AddMenu(L"second", second) && second.AddMenu(L"third", third));
    for (const Menu& menu : {first, second, third})
        EXPECT_FALSE(third.AddMenu(L"around", menu));
    EXPECT_TRUE(first.AddMenu(L"third again", third)) << "several may share one";
}

TEST_F(MenuPlugin, OutlivesTheMenusThatItIsIn) {
    const Menu shared = Make();
    shared.Add(L"a", function_.Get());
    {
        const Menu first = Make(), second = Make();
        EXPECT_TRUE(first.AddMenu(L"shared", shared) && second.AddMenu(L"first", first) &&
                    second.AddMenu(L"shared", shared));
    }
    EXPECT_EQ(GetMenuItemCount(shared.Native()), 1);
}

// Of a plug-in library, for example.
class ForeignMenu : public SilentObject<As<TVK::IMenu, IDispatch, TVK::IMenu>> {
  public:
    STDMETHODIMP Init(HWND, HWND, int) override { return S_OK; }
    STDMETHODIMP_(HMENU) GetMenu() override { return menu_.Get(); }
    STDMETHODIMP_(int) Exec(UINT id) override { return ++asked, id == 77 ? 0 : 1; }

    int asked = 0;

  private:
    UniqueMenu menu_{CreatePopupMenu()};
};

// Twice in each of ten menus: 1024 ways lead to the innermost one.
TEST_F(MenuPlugin, AsksASharedMenuOnce) {
    const auto innermost = MakeCom<ForeignMenu>();
    Menu top(innermost.Get());
    for (int i = 0; i < 10; ++i) {
        const Menu above = Make();
        EXPECT_TRUE(above.AddMenu(L"one", top) && above.AddMenu(L"two", top));
        top = above;
    }
    EXPECT_EQ(top.Exec(78), 1);
    EXPECT_EQ(innermost->asked, 1);
    EXPECT_EQ(top.Exec(77), 0);
}

TEST_F(MenuPlugin, NestsDeeperThanTheStack) {
    const ObjectCheck nothingLeft;
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

TEST_F(MenuPlugin, BearsWhatItsFunctionDoes) {
    Menu menu = Make();
    const HMENU native = menu.Native();
    const auto drop = [&](const Recorder::Record&) {
        for (int i = 0; i < 100; ++i)
            menu.Add(L"new", function_.Get());
        menu = Menu();
        DestroyWindow(window_);
        return Variant();
    };
    const auto function = MakeCom<Recorder>(drop);
    menu.Add(L"a", function.Get(), L"context");
    TVK::IMenu* const only = Query<TVK::IMenu>(menu).Get();
    EXPECT_EQ(only->Exec(menu.Id(0)), 0);
    EXPECT_THAT(function->Texts(), ElementsAre("BSTR context"));
    EXPECT_FALSE(IsMenu(native));
    EXPECT_TRUE(IsMenu(Make().Native())) << "by a plug-in whose window has gone";
}

}  // namespace
}  // namespace tarvik
