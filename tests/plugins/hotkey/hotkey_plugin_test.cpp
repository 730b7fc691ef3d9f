#include "plugins/hotkey/hotkey_plugin.h"

#include "tests/plugins/support/page_core.h"
#include "tests/support/screen.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

// A hidden window that counts the hot keys that nobody before it takes, and its plug-in.
class Desk : public CWindowImpl {
  public:
    Desk() {
        SubclassWindow(window_.Get());
        const auto made = MakeCom<CHotkeyPlugin>();
        EXPECT_THAT(made->Initialize(MakeCom<Core>(window_.Get()).Get(), nullptr), HasStatus(S_OK));
        plugin = ComPtr<IDispatch>(made.Get());
    }
    std::string Set(const wchar_t* keys, const ComPtr<Recorder>& function) {
        return ResultText(CallMember(plugin.Get(), L"set", keys, function));
    }
    std::string Clear(const wchar_t* keys) { return ResultText(CallMember(plugin.Get(), L"clear", keys)); }
    void Close() { window_.Reset(); }

    ComPtr<IDispatch> plugin;
    int passedOn = 0;

  private:
    class Core : public PageCore {
      public:
        explicit Core(HWND window) : PageCore(L"C:/page.html"), window_(window) {}
        STDMETHODIMP_(HWND) GetWindowHandle() override { return window_; }

      private:
        HWND window_;
    };
    bool ProcessWindowMessage(UINT message, WPARAM, LPARAM, LRESULT&) override {
        passedOn += message == WM_HOTKEY;
        return false;
    }

    UniqueWindow window_{
        CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)};
};

class HotkeyPlugin : public testing::Test {
  protected:
    const ObjectCheck nothingLeft_;
    Desk desk_;
    ComPtr<Recorder> first_ = MakeCom<Recorder>();
    ComPtr<Recorder> second_ = MakeCom<Recorder>();
};

TEST_F(HotkeyPlugin, CallsWhatThePressedKeysAreSetTo) {
    EXPECT_EQ(ResultText(CallMember(desk_.plugin.Get(), L"set", L"Ctrl+Alt+F9", first_, L"context")),
              "BOOL true");
    EXPECT_EQ(desk_.Set(L"shift+f9", second_), "BOOL true");
    EXPECT_EQ(desk_.Set(L"f7", second_), "BOOL true");
    PressKeys({VK_CONTROL, VK_MENU, VK_F9});
    EXPECT_TRUE(PumpUntil([&] { return first_->calls.size() == 1; }));
    PressKeys({VK_SHIFT, VK_F9});
    PressKeys({VK_CONTROL, VK_F9});
    PressKeys({VK_F7});
    EXPECT_TRUE(PumpUntil([&] { return second_->calls.size() == 2; }));
    EXPECT_THAT(first_->Texts(), ElementsAre("BSTR context"));
    EXPECT_THAT(second_->Texts(), ElementsAre("EMPTY", "EMPTY"));
    EXPECT_EQ(desk_.passedOn, 0);
    SendMessageW(desk_.Window(), WM_HOTKEY, 1000, MAKELPARAM(MOD_ALT, VK_F7));
    EXPECT_EQ(desk_.passedOn, 1) << "its id says nothing";
}

TEST_F(HotkeyPlugin, GivesACombinationToOneOnly) {
    EXPECT_EQ(desk_.Set(L"ctrl+alt+k", first_), "BOOL true");
    EXPECT_EQ(desk_.Set(L"Alt+CTRL+K", second_), "BOOL false");
    Desk other;
    EXPECT_EQ(other.Set(L"ctrl+alt+k", second_), "BOOL false");
    EXPECT_EQ(other.Clear(L"ctrl+alt+k"), "BOOL false");
    PressKeys({VK_CONTROL, VK_MENU, 'K'});
    EXPECT_TRUE(PumpUntil([&] { return first_->calls.size() == 1; }));
    EXPECT_TRUE(second_->calls.empty());

    EXPECT_EQ(desk_.Clear(L"ALT+ctrl+K"), "BOOL true");
    EXPECT_EQ(desk_.Clear(L"ctrl+alt+k"), "BOOL false");
    EXPECT_EQ(other.Set(L"ctrl+alt+k", second_), "BOOL true") << "a refusal leaves nothing behind";
    other.Close();
    EXPECT_EQ(other.Set(L"f7", second_), "BOOL false");
    EXPECT_EQ(desk_.Set(L"ctrl+alt+k", second_), "BOOL true") << "the keys go with the window";
}

// What a function does to the plug-in that is calling it.
TEST_F(HotkeyPlugin, MayBeChangedByItsFunctions) {
    const auto press = [&] { SendMessageW(desk_.Window(), WM_HOTKEY, 0, MAKELPARAM(0, VK_F7)); };
    desk_.Set(L"f7", MakeCom<Recorder>([&](const Recorder::Record&) {
                  EXPECT_EQ(desk_.Clear(L"f7"), "BOOL true");
                  EXPECT_EQ(desk_.Set(L"f7", second_), "BOOL true");
                  return Variant();
              }));
    press();
    press();
    EXPECT_EQ(second_->calls.size(), 1u);
    desk_.Clear(L"f7");
    const long before = liveComObjects;
    desk_.Set(L"f7", MakeCom<Recorder>([&](const Recorder::Record&) {
                  desk_.plugin.Reset();
                  desk_.Close();
                  return Variant();
              }));
    press();
    EXPECT_EQ(liveComObjects, before - 1) << "the plug-in goes with its window";
}

TEST_F(HotkeyPlugin, RefusesWhatItCannotSet) {
    IDispatch* const plugin = desk_.plugin.Get();
    for (const wchar_t* keys : {L"", L"ctrl+", L"ctrl++", L"hyper+a"}) {
        EXPECT_EQ(desk_.Set(keys, first_), "BOOL false");
        EXPECT_EQ(desk_.Clear(keys), "BOOL false");
    }
    EXPECT_THAT(CallMember(plugin, L"set", L"f7").status, HasStatus(E_NOTIMPL));
    EXPECT_THAT(CallMember(plugin, L"set", L"f7", first_, 1, 2).status, HasStatus(E_NOTIMPL));
    EXPECT_THAT(CallMember(plugin, L"clear").status, HasStatus(E_NOTIMPL));
    EXPECT_THAT(GetMember(plugin, L"set").status, HasStatus(E_NOTIMPL));
    EXPECT_THAT(CallMember(plugin, L"set", 7, first_).status, HasStatus(E_INVALIDARG));
    Argument wrong[] = {nullptr, L"f", static_cast<IDispatch*>(nullptr)};
    for (Argument& function : wrong)
        EXPECT_THAT(CallMember(plugin, L"set", L"f7", std::move(function)).status, HasStatus(E_INVALIDARG));
    EXPECT_THAT(MakeCom<CHotkeyPlugin>()->Initialize(nullptr, nullptr), HasStatus(E_INVALIDARG));
    EXPECT_EQ(ResultText(CallMember(MakeCom<CHotkeyPlugin>().Get(), L"set", L"f7", first_)), "BOOL false");
}

}  // namespace
}  // namespace tarvik
