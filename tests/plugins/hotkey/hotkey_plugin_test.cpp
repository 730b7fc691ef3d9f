#include "plugins/hotkey/hotkey_plugin.h"

#include "tests/plugins/support/page_core.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

// A hidden window and its plug-in. Presses of real keys are tested where a page hears of them.
class Desk {
  public:
    Desk() {
        const auto made = MakeCom<CHotkeyPlugin>();
        EXPECT_THAT(made->Initialize(MakeCom<Core>(window.Get()).Get(), nullptr), HasStatus(S_OK));
        plugin = ComPtr<IDispatch>(made.Get());
    }
    std::string Set(const wchar_t* keys, const ComPtr<Recorder>& function) {
        return ResultText(CallMember(plugin.Get(), L"set", keys, function));
    }
    std::string Clear(const wchar_t* keys) { return ResultText(CallMember(plugin.Get(), L"clear", keys)); }
    // As the system tells of it; the number that it gives in front says nothing.
    void Press(WORD modifiers, WORD key) {
        SendMessageW(window.Get(), WM_HOTKEY, 5, MAKELPARAM(modifiers, key));
    }

    UniqueWindow window{
        CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)};
    ComPtr<IDispatch> plugin;

  private:
    class Core : public PageCore {
      public:
        explicit Core(HWND window) : PageCore(L"C:/page.html"), window_(window) {}
        STDMETHODIMP_(HWND) GetWindowHandle() override { return window_; }

      private:
        HWND window_;
    };
};

class HotkeyPlugin : public testing::Test {
  protected:
    const ObjectCheck nothingLeft_;
    Desk desk_;
    ComPtr<Recorder> first_ = MakeCom<Recorder>();
    ComPtr<Recorder> second_ = MakeCom<Recorder>();
};

TEST_F(HotkeyPlugin, GivesACombinationToOneOnly) {
    EXPECT_EQ(desk_.Set(L"ctrl+alt+k", first_), "BOOL true");
    EXPECT_EQ(desk_.Set(L"Alt+CTRL+K", second_), "BOOL false");
    Desk other;
    EXPECT_EQ(other.Set(L"ctrl+alt+k", second_), "BOOL false");
    EXPECT_EQ(other.Clear(L"ctrl+alt+k"), "BOOL false");
    for (const WORD modifiers : {MOD_ALT | MOD_CONTROL, MOD_ALT, 0})
        desk_.Press(modifiers, 'K');
    EXPECT_THAT(first_->Texts(), ElementsAre("EMPTY"));

    EXPECT_EQ(desk_.Clear(L"ALT+ctrl+K"), "BOOL true");
    EXPECT_EQ(desk_.Clear(L"ctrl+alt+k"), "BOOL false");
    EXPECT_EQ(other.Set(L"ctrl+alt+k", second_), "BOOL true") << "a refusal leaves nothing behind";
    other.window.Reset();
    EXPECT_EQ(other.Set(L"f7", second_), "BOOL false");
    EXPECT_EQ(desk_.Set(L"ctrl+alt+k", second_), "BOOL true") << "the keys go with the window";
}

// What a function does to the plug-in that is calling it.
TEST_F(HotkeyPlugin, MayBeChangedByItsFunctions) {
    desk_.Set(L"f7", MakeCom<Recorder>([&](const Recorder::Record&) {
                  EXPECT_EQ(desk_.Clear(L"f7"), "BOOL true");
                  EXPECT_EQ(desk_.Set(L"f7", second_), "BOOL true");
                  return Variant();
              }));
    desk_.Press(0, VK_F7);
    desk_.Press(0, VK_F7);
    EXPECT_EQ(second_->calls.size(), 1u);
    const long before = liveComObjects;
    desk_.Set(L"f8", MakeCom<Recorder>([&](const Recorder::Record&) {
                  desk_.plugin.Reset();
                  desk_.window.Reset();
                  return Variant();
              }));
    desk_.Press(0, VK_F8);
    EXPECT_EQ(liveComObjects, before - 1) << "the plug-in goes with its window";
}

TEST_F(HotkeyPlugin, RefusesWhatItCannotSet) {
    IDispatch* const plugin = desk_.plugin.Get();
    EXPECT_EQ(desk_.Set(L"ctrl+", first_), "BOOL false");
    EXPECT_EQ(desk_.Clear(L"ctrl+"), "BOOL false");
    EXPECT_THAT(CallMember(plugin, L"set", L"f7").status, HasStatus(E_NOTIMPL));
    EXPECT_THAT(CallMember(plugin, L"set", L"f7", first_, 1, 2).status, HasStatus(E_NOTIMPL));
    EXPECT_THAT(CallMember(plugin, L"set", 7, first_).status, HasStatus(E_INVALIDARG));
    Argument wrong[] = {nullptr, L"f", static_cast<IDispatch*>(nullptr)};
    for (Argument& function : wrong)
        EXPECT_THAT(CallMember(plugin, L"set", L"f7", std::move(function)).status, HasStatus(E_INVALIDARG));
    EXPECT_THAT(MakeCom<CHotkeyPlugin>()->Initialize(nullptr, nullptr), HasStatus(E_INVALIDARG));
}

}  // namespace
}  // namespace tarvik
