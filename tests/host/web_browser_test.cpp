// Browser windows with the system's own control.

#include "host/web_browser.h"

#include <exdisp.h>
#include <exdispid.h>

#include "tarvik/com_object.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

class BrowserWindow : public testing::Test {
  protected:
    BrowserWindow() { appModule.AddMessageLoop(&loop_); }
    ~BrowserWindow() override { appModule.RemoveMessageLoop(); }

    // Creates a browser window, shows it, resizes it and sets the focus.
    void Use(CWebBrowser* browser) const {
        const HWND window = browser->CreateHidden(nullptr, page_.c_str());
        EXPECT_EQ(IsWindow(window) != FALSE, window != nullptr);
        ShowWindow(window, SW_SHOW);
        SetWindowPos(window, nullptr, 0, 0, 250, 150, SWP_NOMOVE | SWP_NOZORDER);
        SendMessageW(window, WM_SETFOCUS, 0, 0);
        PumpUntil([&] { return !IsWindow(window); }, std::chrono::milliseconds(100));
        if (IsWindow(window)) DestroyWindow(window);
        PumpOnce();
    }

    CMessageLoop loop_;
    const TempFolder folder_;
    const std::wstring page_ = folder_.Write(L"page.html", "<html></html>");
};

TEST_F(BrowserWindow, IsNotCreatedIfThePageDoesNotExist) {
    const ObjectCheck noLeaks;
    DebugChannel channel;
    for (const std::wstring& page : {folder_ / L"none.html", std::wstring()})
        EXPECT_FALSE(MakeCom<CWebBrowser>()->CreateHidden(nullptr, page.c_str()));
    EXPECT_THAT(channel.Texts(), ElementsAre(EndsWith("none.html\" does not exist. No window was opened.\n"),
                                             testing::StartsWith("A relative URL")));
}

// The class factory of the system's web browser control, which closes a window before it creates one.
class ClosingClass : public ComObject<IClassFactory> {
  public:
    explicit ClosingClass(CWebBrowser* closed) : closed_(closed) {
        CoGetClassObject(CLSID_WebBrowser, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                         reinterpret_cast<void**>(system_.GetAddressOf()));
    }

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
        DestroyWindow(closed_->GetWindowHandle());
        return system_->CreateInstance(outer, iid, out);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

  private:
    CWebBrowser* const closed_;
    ComPtr<IClassFactory> system_;
};

TEST_F(BrowserWindow, MayBeClosedBeforeItsControlIsCreated) {
    const ObjectCheck noLeaks;
    const auto browser = MakeCom<CWebBrowser>();
    DWORD cookie = 0;
    CoRegisterClassObject(CLSID_WebBrowser, MakeCom<ClosingClass>(browser.Get()).Get(), CLSCTX_INPROC_SERVER,
                          REGCLS_MULTIPLEUSE, &cookie);
    EXPECT_FALSE(browser->CreateHidden(nullptr, page_.c_str()));
    CoRevokeClassObject(cookie);
}

// Closes the window inside the calls that create and use it, as script could: at each event of a CBT hook in
// turn.
TEST_F(BrowserWindow, MayBeClosedAtAnyTime) {
    static CWebBrowser* closed;
    static int left;
    const HOOKPROC onEvent = [](int, WPARAM, LPARAM) -> LRESULT {
        if (left-- == 0) DestroyWindow(closed->GetWindowHandle());
        return 0;
    };
    const long before = detail::liveComObjects;
    int events = 0;
    do {
        const auto browser = MakeCom<CWebBrowser>();
        closed = browser.Get();
        left = events;
        const HHOOK hook = SetWindowsHookExW(WH_CBT, onEvent, nullptr, GetCurrentThreadId());
        Use(browser.Get());
        UnhookWindowsHookEx(hook);
    } while (left < 0 && ++events < 100);
    EXPECT_EQ(detail::liveComObjects, before);
    EXPECT_GT(events, 5);
    EXPECT_LT(events, 100);
    // A message filter of a destroyed window would crash here.
    PostMessageW(nullptr, WM_APP, 0, 0);
    PostQuitMessage(0);
    loop_.Run();
}

// Creates reference cycles: each plug-in of the window stores itself as a function, or as the context of one.
TEST_F(BrowserWindow, ReleasesPluginsDespiteReferenceCycles) {
    const ObjectCheck noLeaks;
    const auto browser = MakeCom<CWebBrowser>();
    const HWND window = browser->CreateHidden(nullptr, page_.c_str());
    ComPtr<IDispatch> plugins[5];
    const wchar_t* const names[] = {L"window", L"tray", L"hotkey", L"dragfile", L"menu"};
    for (size_t i = 0; i < std::size(names); ++i)
        ASSERT_EQ(browser->GetPlugin(names[i], plugins[i].GetAddressOf()), S_OK);
    const ComPtr<IDispatch>&main = plugins[0], &tray = plugins[1], &hotkey = plugins[2],
          &dragfile = plugins[3], &menu = plugins[4];
    const auto function = MakeCom<Recorder>();
    const auto createCycles = [&] {
        const InvokeResult msg = GetMember(main.Get(), L"msg");
        CallMember(msg.value.pdispVal, L"registerMsg", L"name", function, main);
        CallMember(hotkey.Get(), L"set", L"ctrl+alt+f5", function, hotkey);
        CallMember(dragfile.Get(), L"bind", L"id", function, dragfile);
        PutMember(main.Get(), L"onClose", main);
        PutMember(tray.Get(), L"onClick", tray);
    };
    createCycles();
    const InvokeResult bar = CallMember(menu.Get(), L"createMenu", L"windowMenu");
    const OptionObject item;
    item.Set(L"name", L"item").Set(L"callback", function).Set(L"context", main);
    CallMember(bar.value.pdispVal, L"appendMenu", static_cast<IDispatch*>(item));
    PutMember(main.Get(), L"menu", bar.value.pdispVal);
    DestroyWindow(window);
    PumpOnce();
    createCycles();
    PutMember(main.Get(), L"menu", bar.value.pdispVal);
}

TEST_F(BrowserWindow, CancelsNewWindowsOfTheControl) {
    VARIANT_BOOL cancel = VARIANT_FALSE;
    VARIANT arguments[5] = {};
    arguments[3].vt = VT_BOOL | VT_BYREF;
    arguments[3].pboolVal = &cancel;
    DISPPARAMS parameters = {arguments, nullptr, 5, 0};
    MakeCom<CWebBrowser>()->OnEvent(DISPID_NEWWINDOW3, parameters);
    EXPECT_EQ(cancel, VARIANT_TRUE);
}

}  // namespace
}  // namespace tarvik
