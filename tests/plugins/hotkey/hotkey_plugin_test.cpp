#include "tests/plugins/support/plugin_of_window.h"

namespace tarvik {
namespace {

// tests/page tests real key presses, with a page that receives them.
class HotkeyPlugin : public PluginOfWindow {
  protected:
    HotkeyPlugin() : PluginOfWindow(L"hotkey") {}

    std::string Set(const wchar_t* keys, const ComPtr<Recorder>& function) {
        return CallText(plugin_.Get(), L"set", keys, function);
    }
    std::string Clear(const wchar_t* keys) { return CallText(plugin_.Get(), L"clear", keys); }
    // As the system posts it. The hot key's id, 5, has no meaning.
    void Press(WORD modifiers, WORD key) { SendMessageW(window_, WM_HOTKEY, 5, MAKELPARAM(modifiers, key)); }

    const ComPtr<Recorder> first_ = MakeCom<Recorder>();
    const ComPtr<Recorder> second_ = MakeCom<Recorder>();
};

TEST_F(HotkeyPlugin, RegistersACombinationOnce) {
    const auto browser = MakeCom<CWebBrowser>();
    const HWND window = browser->CreateHidden(nullptr, (folder_ / L"page.html").c_str());
    ComPtr<IDispatch> other;
    browser->GetPlugin(L"hotkey", other.GetAddressOf());
    EXPECT_EQ(Set(L"ctrl+alt+k", first_), "BOOL true");
    EXPECT_EQ(Set(L"Alt+CTRL+K", second_), "BOOL false");
    EXPECT_EQ(CallText(other.Get(), L"set", L"ctrl+alt+k", second_), "BOOL false");
    EXPECT_EQ(CallText(other.Get(), L"clear", L"ctrl+alt+k"), "BOOL false");
    EXPECT_EQ(Set(L"ctrl+", first_), "BOOL false") << "no key";
    for (const WORD modifiers : {MOD_ALT | MOD_CONTROL, MOD_ALT, 0})
        Press(modifiers, 'K');
    EXPECT_THAT(first_->Texts(), ElementsAre("EMPTY"));

    EXPECT_EQ(Clear(L"ALT+ctrl+K"), "BOOL true");
    EXPECT_EQ(Clear(L"ctrl+alt+k"), "BOOL false");
    EXPECT_EQ(CallText(other.Get(), L"set", L"ctrl+alt+k", second_), "BOOL true");
    DestroyWindow(window);
    EXPECT_EQ(Set(L"ctrl+alt+k", second_), "BOOL true") << "a destroyed window has no hot keys";
}

TEST_F(HotkeyPlugin, SurvivesAFunctionThatDestroysTheWindow) {
    Set(L"f8", MakeCom<Recorder>([&](const Recorder::Record&) {
            plugin_.Reset();
            DestroyWindow(window_);
            return Variant();
        }));
    Press(0, VK_F8);
    EXPECT_FALSE(IsWindow(window_));
}

}  // namespace
}  // namespace tarvik
