#include <windows.h>
#include <shellapi.h>

#include <filesystem>

#include "plugins/tray/tray_subclass.h"
#include "tests/plugins/support/plugin_of_window.h"

namespace tarvik {
namespace {

class TrayPlugin : public PluginOfWindow {
  protected:
    TrayPlugin() : PluginOfWindow(L"tray") {}

    HRESULT Call(const wchar_t* member, auto... arguments) const {
        return CallMember(plugin_.Get(), member, arguments...).status;
    }
    BOOL NotifyShell(DWORD message) const {
        NOTIFYICONDATAW data = {};
        data.cbSize = sizeof data;
        data.hWnd = window_;
        data.uID = kTrayIconId;
        return Shell_NotifyIconW(message, &data);
    }
    // The shell modifies only icons that it shows.
    bool IsShown() const { return NotifyShell(NIM_MODIFY) != FALSE; }
};

TEST_F(TrayPlugin, ShowsAndHidesItsIcon) {
    const std::wstring file = std::filesystem::path(ExecutablePath()).replace_extension(L".ico");
    for (const std::wstring& icon : {std::wstring(), file, L"file:///" + file}) {
        EXPECT_THAT(Call(L"addTray", std::wstring(500, L't').c_str(), icon.c_str()), HasStatus(S_OK));
        EXPECT_TRUE(IsShown());
        EXPECT_THAT(Call(L"hide"), HasStatus(S_OK));
        EXPECT_FALSE(IsShown());
    }
    for (int i = 0; i < 2; ++i)
        EXPECT_THAT(Call(L"show"), HasStatus(S_OK)) << "failures of the shell are not reported";
    EXPECT_TRUE(IsShown());
}

TEST_F(TrayPlugin, AddsNoIconIfItCannotBeLoaded) {
    EXPECT_TRUE(FAILED(Call(L"addTray", L"tip", folder_.Write(L"bad.ico", "not an icon").c_str())));
    EXPECT_THAT(Call(L"addTray", L"tip", (folder_ / L"missing.ico").c_str()),
                HasStatus(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)));
    EXPECT_FALSE(IsShown());
}

TEST_F(TrayPlugin, RestoresItsIconWhenTheShellRestarts) {
    for (const bool shown : {true, false}) {
        Call(L"addTray", L"tip");
        if (!shown) Call(L"hide");
        NotifyShell(NIM_DELETE);
        SendMessageW(window_, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
        EXPECT_EQ(IsShown(), shown);
    }
}

}  // namespace
}  // namespace tarvik
