#include "host/contract/menu.h"

#include "app/log/log.h"
#include "tests/plugins/support/plugin_of_window.h"
#include "tests/support/silent_object.h"

namespace tarvik {
namespace {

// A menu object and what the system has of it.
class Menu {
  public:
    Menu() = default;
    explicit Menu(IDispatch* object) : object_(Query<TVK::IMenu>(object)) {}

    operator IDispatch*() const { return object_.Get(); }
    HMENU Native() const { return object_->GetMenu(); }
    UINT State(int position) const {
        return GetMenuState(Native(), static_cast<UINT>(position), MF_BYPOSITION) & 0xFF &
               ~static_cast<UINT>(MF_HILITE);
    }
    UINT Id(int position) const { return GetMenuItemID(Native(), position); }
    int Exec(UINT id) const { return object_->Exec(id); }
    // As script sees it.
    std::string Append(const OptionObject& options) const {
        return CallText(*this, L"appendMenu", static_cast<IDispatch*>(options));
    }
    // Whether it was done.
    bool Add(const wchar_t* name, IDispatch* function, const Argument& context = Variant()) const {
        return Append(OptionObject()
                          .Set(L"name", name)
                          .Set(L"callback", function)
                          .Set(L"context", Variant::Copy(context))) == "BOOL false";
    }
    bool AddMenu(const wchar_t* name, IDispatch* menu) const {
        return Append(OptionObject().Set(L"name", name).Set(L"subMenu", menu)) == "BOOL false";
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
    // With what came of calls to `function_`.
    ComPtr<Recorder> function_ = MakeCom<Recorder>();
};

TEST_F(MenuPlugin, MakesMenusOfThreeTypes) {
    for (const wchar_t* type : {L"popupMenu", L"TRAYMENU", L"windowMenu"})
        EXPECT_TRUE(IsMenu(Make(type).Native())) << type;
    EXPECT_EQ(CallText(Make(), L"popup"), "BOOL false") << "nothing is in it";
    const Menu bar = Make(L"windowmenu");
    bar.Add(L"a", function_.Get());
    EXPECT_EQ(CallText(bar, L"popup", 10, 10), "BOOL false");
    for (const wchar_t* wrong : {L"", L"menu"})
        EXPECT_THAT(CallMember(plugin_.Get(), L"createMenu", wrong).status, HasStatus(E_NOTIMPL));
    EXPECT_THAT(CallMember(plugin_.Get(), L"createMenu", 1).status, HasStatus(E_INVALIDARG));
    EXPECT_THAT(CallMember(bar, L"popup", L"10").status, HasStatus(E_NOTIMPL)) << "one is too few";
    EXPECT_THAT(CallMember(bar, L"popup", L"10", 10).status, HasStatus(E_INVALIDARG));
}

TEST_F(MenuPlugin, AppendsWhatTheOptionsSay) {
    const Menu menu = Make();
    const OptionObject named = OptionObject().Set(L"name", L"Item");
    const std::pair<OptionObject, UINT> good[] = {
        {OptionObject().Set(L"name", L"a").Set(L"callback", function_), MF_ENABLED},
        {OptionObject().Set(L"name", L"b").Set(L"callback", function_).Set(L"gray", true), MF_GRAYED},
        {OptionObject().Set(L"name", L"c").Set(L"callback", function_).Set(L"gray", 1), MF_ENABLED},
        {OptionObject().Set(L"name", L"d").Set(L"callback", L"f"), MF_GRAYED},
        {OptionObject().Set(L"name", L"e").Set(L"subMenu", 5).Set(L"callback", function_), MF_ENABLED},
        {OptionObject().Set(L"name", L"f").Set(L"subMenu", static_cast<IDispatch*>(Make())), MF_POPUP},
        {OptionObject()
             .Set(L"name", L"g")
             .Set(L"subMenu", static_cast<IDispatch*>(Make()))
             .Set(L"gray", true),
         MF_POPUP | MF_GRAYED},
    };
    int count = 0;
    for (const auto& [options, state] : good) {
        EXPECT_EQ(menu.Append(options), "BOOL false");
        EXPECT_EQ(menu.State(count), state) << count;
        ++count;
    }
    EXPECT_EQ(menu.Append(OptionObject().Set(L"separator", true)), "BOOL false");
    EXPECT_TRUE(GetMenuState(menu.Native(), static_cast<UINT>(count), MF_BYPOSITION) & MF_SEPARATOR);
    ++count;
    for (const OptionObject& bad :
         {OptionObject(), OptionObject().Set(L"name", 5), OptionObject().Set(L"separator", 1),
          OptionObject().Set(L"name", L"h").Set(L"subMenu", function_)})
        EXPECT_EQ(menu.Append(bad), "BOOL true");
    EXPECT_EQ(CallText(menu, L"getItemCount"), "I4 " + std::to_string(count));
    EXPECT_THAT(CallMember(menu, L"appendMenu", L"i").status, HasStatus(E_INVALIDARG));
}

TEST_F(MenuPlugin, SpendsANumberOnEveryAppend) {
    const Menu menu = Make(), other = Make();
    menu.Add(L"a", function_.Get());
    menu.Append(OptionObject());
    menu.AddMenu(L"b", other);
    other.Append(OptionObject().Set(L"separator", true));
    other.Add(L"c", function_.Get());
    EXPECT_GE(menu.Id(0), 2000u);
    EXPECT_EQ(other.Id(1), menu.Id(0) + 4);
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
    EXPECT_EQ(menu.Exec(1), 1);
    EXPECT_EQ(inner.Exec(menu.Id(1)), 1) << "that of the menu above";
    EXPECT_THAT(function_->Texts(), ElementsAre("", "BSTR text", "NULL"));
}

TEST_F(MenuPlugin, FindsAndEnablesItemsByName) {
    const Menu menu = Make(), inner = Make();
    menu.Append(OptionObject().Set(L"separator", true));
    menu.Add(L"\u00C4pfel", function_.Get());
    menu.Add(L"more", function_.Get());
    menu.AddMenu(L"More", inner);
    const auto enable = [&](const wchar_t* name, bool on) { return CallText(menu, L"enable", name, on); };
    EXPECT_EQ(enable(L"\u00E4PFEL", false), "BOOL true");
    EXPECT_EQ(menu.State(1), static_cast<UINT>(MF_GRAYED));
    EXPECT_EQ(enable(L"\u00C4pfel", true), "BOOL true");
    EXPECT_EQ(menu.State(1), static_cast<UINT>(MF_ENABLED));
    EXPECT_EQ(enable(L"MORE", false), "BOOL true");
    EXPECT_EQ(menu.State(2), static_cast<UINT>(MF_GRAYED));
    EXPECT_EQ(menu.State(3), static_cast<UINT>(MF_POPUP)) << "the first of the name is meant";
    EXPECT_EQ(enable(L"", false), "BOOL false");
    EXPECT_EQ(enable(L"mor", false), "BOOL false");
    EXPECT_THAT(CallMember(menu, L"enable", L"more", 1).status, HasStatus(E_INVALIDARG));

    EXPECT_EQ(CallMember(menu, L"getSubMenu", L"mORE").value.pdispVal, static_cast<IDispatch*>(inner));
    EXPECT_EQ(CallText(menu, L"getSubMenu", L"\u00C4pfel"), "EMPTY");
    EXPECT_THAT(CallMember(menu, L"getSubMenu", L"").status, HasStatus(E_INVALIDARG));

    const Menu above = Make();
    above.AddMenu(L"file", menu);
    CallMember(above, L"enable", L"File", false);
    EXPECT_EQ(above.State(0), static_cast<UINT>(MF_POPUP | MF_GRAYED));
}

// Of a plug-in library, for example.
class ForeignMenu : public SilentObject<As<TVK::IMenu, IDispatch, TVK::IMenu>> {
  public:
    STDMETHODIMP Init(HWND, HWND, int) override { return S_OK; }
    STDMETHODIMP_(HMENU) GetMenu() override { return menu; }
    STDMETHODIMP_(int) Exec(UINT id) override { return ++asked, id == 77 ? 0 : 1; }

    HMENU menu = nullptr;
    int asked = 0;
};

TEST_F(MenuPlugin, TakesMenusOfOthers) {
    const UniqueMenu native(CreatePopupMenu());
    const auto foreign = MakeCom<ForeignMenu>();
    const Menu menu = Make(), inner = Make();
    EXPECT_FALSE(menu.AddMenu(L"foreign", foreign.Get())) << "it has none";
    foreign->menu = native.Get();
    EXPECT_TRUE(menu.AddMenu(L"inner", inner) && inner.AddMenu(L"foreign", foreign.Get()));
    EXPECT_EQ(menu.Exec(77), 0);
    EXPECT_EQ(menu.Exec(78), 1);
}

TEST_F(MenuPlugin, IsNeverInItself) {
    const ObjectCheck nothingLeft;
    const Menu first = Make(), second = Make(), third = Make();
    EXPECT_TRUE(first.AddMenu(L"second", second) && second.AddMenu(L"third", third));
    for (const Menu& menu : {first, second, third})
        EXPECT_FALSE(third.AddMenu(L"around", menu));
    EXPECT_FALSE(first.AddMenu(L"itself", first));
    EXPECT_TRUE(first.AddMenu(L"third again", third)) << "several may share one";
}

TEST_F(MenuPlugin, OutlivesTheMenusThatItIsIn) {
    const ObjectCheck nothingLeft;
    const Menu shared = Make();
    shared.Add(L"a", function_.Get());
    {
        const Menu first = Make(), second = Make();
        first.AddMenu(L"shared", shared);
        second.AddMenu(L"shared", shared);
        second.AddMenu(L"first", first);
    }
    EXPECT_EQ(GetMenuItemCount(shared.Native()), 1);
    EXPECT_EQ(shared.Exec(shared.Id(0)), 0);
}

// Twice in each of ten menus: 1024 ways lead to the innermost one.
TEST_F(MenuPlugin, AsksASharedMenuOnce) {
    const UniqueMenu native(CreatePopupMenu());
    const auto innermost = MakeCom<ForeignMenu>();
    innermost->menu = native.Get();
    ComPtr<IDispatch> menu(innermost.Get());
    Menu top;
    for (int i = 0; i < 10; ++i) {
        top = Make();
        EXPECT_TRUE(top.AddMenu(L"one", menu.Get()) && top.AddMenu(L"two", menu.Get()));
        menu = static_cast<IDispatch*>(top);
    }
    EXPECT_EQ(top.Exec(78), 1);
    EXPECT_EQ(innermost->asked, 1);
}

TEST_F(MenuPlugin, NestsDeep) {
    const ObjectCheck nothingLeft;
    Menu menu = Make();
    const Menu top = menu;
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
    int calls = 0;
    const auto drop = [&](const Recorder::Record&) {
        for (int i = 0; i < 100; ++i)
            menu.Add(L"new", function_.Get());
        menu = Menu();
        DestroyWindow(window_);
        ++calls;
        return Variant();
    };
    menu.Add(L"a", MakeCom<Recorder>(drop).Get(), L"context");
    const HMENU native = menu.Native();
    TVK::IMenu* const only = Query<TVK::IMenu>(static_cast<IDispatch*>(menu)).Get();
    EXPECT_EQ(only->Exec(menu.Id(0)), 0);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(IsMenu(native)) << "its last reference was dropped meanwhile";
    const Menu late = Make();
    EXPECT_TRUE(IsMenu(late.Native())) << "of a plug-in whose window has gone";
}

}  // namespace
}  // namespace tarvik
