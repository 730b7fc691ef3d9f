#include <windows.h>
#include <shellapi.h>

#include "plugins/tray/tray_subclass.h"
#include "tests/plugins/support/plugin_of_window.h"

namespace tarvik {
namespace {

// A square of 16 pixels in one colour, as a file of the kind .ico.
std::string IconFile() {
    constexpr int kSide = 16;
    constexpr WORD kBits = 32;
    constexpr DWORD kSize = sizeof(BITMAPINFOHEADER) + kSide * kSide * 4 + kSide * 4;
    constexpr WORD kHead[] = {0, 1, 1, kSide | kSide << 8, 0, 1, kBits, kSize, 0, 22, 0};
    BITMAPINFOHEADER picture = {};
    picture.biSize = sizeof picture;
    picture.biWidth = kSide;
    picture.biHeight = 2 * kSide;  // with the mask
    picture.biPlanes = 1;
    picture.biBitCount = kBits;
    std::string file(reinterpret_cast<const char*>(kHead), sizeof kHead);
    file.append(reinterpret_cast<const char*>(&picture), sizeof picture);
    for (int i = 0; i < kSide * kSide; ++i)
        file += "\x20\x60\xE0\xFF";
    return file + std::string(kSide * 4, '\0');
}

// The number that the window's icon has with the shell is the only one that it answers to.
NOTIFYICONDATAW RecordOf(HWND window) {
    NOTIFYICONDATAW record = {};
    record.cbSize = sizeof record;
    record.hWnd = window;
    record.uID = kTrayIcon;
    return record;
}
bool IsShown(HWND window) {
    NOTIFYICONDATAW record = RecordOf(window);
    return Shell_NotifyIconW(NIM_MODIFY, &record) != FALSE;
}

class TrayPlugin : public PluginOfWindow {
  protected:
    TrayPlugin() : PluginOfWindow(L"tray") {}

    template <class... Args>
    HRESULT Call(const wchar_t* member, Args... arguments) const {
        return CallMember(plugin_.Get(), member, arguments...).status;
    }
    LRESULT Send(LPARAM mouse, WPARAM icon = kTrayIcon) const {
        return SendMessageW(window_, kTrayMessage, icon, mouse);
    }
};

TEST_F(TrayPlugin, ShowsAndHidesItsIcon) {
    EXPECT_FALSE(IsShown(window_));
    EXPECT_THAT(Call(L"addTray", L"The program's"), HasStatus(S_OK));
    EXPECT_TRUE(IsShown(window_));
    EXPECT_THAT(Call(L"hide"), HasStatus(S_OK));
    EXPECT_FALSE(IsShown(window_));
    for (int i = 0; i < 2; ++i)
        EXPECT_THAT(Call(L"show"), HasStatus(S_OK));
    EXPECT_TRUE(IsShown(window_));
    Call(L"hide");
    const std::wstring own = folder_.Write(L"own.ico", IconFile());
    EXPECT_THAT(Call(L"addTray", std::wstring(500, L't').c_str(), own.c_str()), HasStatus(S_OK));
    EXPECT_TRUE(IsShown(window_));
    EXPECT_THAT(Call(L"addTray", L"again", (L"file:///" + own).c_str()), HasStatus(S_OK));
    EXPECT_TRUE(IsShown(window_));
}

TEST_F(TrayPlugin, AddsNothingWithoutItsPicture) {
    folder_.Write(L"bad.ico", "no icon at all");
    for (const wchar_t* file : {L"missing.ico", L"bad.ico"}) {
        EXPECT_TRUE(FAILED(Call(L"addTray", L"tip", file))) << file;
        EXPECT_FALSE(IsShown(window_));
    }
    EXPECT_THAT(Call(L"addTray", L"tip", L"missing.ico"),
                HasStatus(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)));
    EXPECT_THAT(Call(L"addTray", L"tip", 5), HasStatus(E_INVALIDARG));
    EXPECT_THAT(Call(L"addTray"), HasStatus(E_NOTIMPL));
}

TEST_F(TrayPlugin, TellsItsThreeClicks) {
    const auto click = MakeCom<Recorder>(), twice = MakeCom<Recorder>(), right = MakeCom<Recorder>();
    Send(WM_LBUTTONUP);  // nobody is told
    PutMember(plugin_.Get(), L"onClick", click);
    PutMember(plugin_.Get(), L"onDbClick", twice);
    PutMember(plugin_.Get(), L"onRClick", right);
    for (const UINT mouse : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP,
                             WM_RBUTTONDOWN, WM_RBUTTONUP})
        EXPECT_EQ(Send(mouse), 0);
    EXPECT_EQ(Send(WM_LBUTTONUP, kTrayIcon + 1), -1);
    EXPECT_THAT(click->Texts(), ElementsAre("", ""));
    EXPECT_THAT(twice->Texts(), ElementsAre(""));
    EXPECT_THAT(right->Texts(), ElementsAre(""));
    EXPECT_THAT(PutMember(plugin_.Get(), L"onClick", nullptr).status, HasStatus(E_INVALIDARG));
    EXPECT_THAT(GetMember(plugin_.Get(), L"onClick").status, HasStatus(E_NOTIMPL));
}

TEST_F(TrayPlugin, ComesBackWithTheShell) {
    const UINT restarted = RegisterWindowMessageW(L"TaskbarCreated");
    const auto restart = [&] {
        NOTIFYICONDATAW record = RecordOf(window_);
        Shell_NotifyIconW(NIM_DELETE, &record);
        SendMessageW(window_, restarted, 0, 0);
    };
    Call(L"addTray", L"tip");
    restart();
    EXPECT_TRUE(IsShown(window_));
    Call(L"hide");
    restart();
    EXPECT_FALSE(IsShown(window_)) << "a hidden one stays hidden";
}

// Is asked after the plug-in, because it was there before.
class Witness : public CWindowImpl {
  public:
    bool isShown = false, isGone = false;

  protected:
    bool ProcessWindowMessage(UINT message, WPARAM, LPARAM, LRESULT&) override {
        if (message == WM_DESTROY) {
            isShown = IsShown(Window());
            isGone = true;
        }
        return false;
    }
};

TEST(TrayIcon, GoesWithItsWindowInsideItsFunction) {
    const ObjectCheck nothingLeft;
    const TempFolder folder;
    Witness witness;
    const auto browser = MakeCom<CWebBrowser>();
    const HWND window = browser->CreateHidden(nullptr, folder.Write(L"page.html", "<html></html>").c_str());
    witness.SubclassWindow(window);
    ComPtr<IDispatch> tray;
    browser->GetPlugin(L"tray", tray.GetAddressOf());
    CallMember(tray.Get(), L"addTray", L"tip");
    ASSERT_TRUE(IsShown(window));
    const auto close = [&](const Recorder::Record&) {
        DestroyWindow(window);
        return Variant();
    };
    PutMember(tray.Get(), L"onClick", MakeCom<Recorder>(close));
    tray.Reset();
    SendMessageW(window, kTrayMessage, kTrayIcon, WM_LBUTTONUP);
    EXPECT_TRUE(witness.isGone);
    EXPECT_FALSE(witness.isShown);
    PumpOnce();
}

}  // namespace
}  // namespace tarvik
