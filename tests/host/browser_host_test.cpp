// The site's decisions, without a window.

#include "host/browser_host.h"

#include "host/accelerators.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

constexpr GUID kDocHostCommands = {
    0xF38BC242, 0xB950, 0x11D1, {0x89, 0x18, 0x00, 0xC0, 0x4F, 0xC2, 0xC8, 0x36}};
constexpr DWORD kShowScriptError = 40;

class BrowserHost : public testing::Test {
  protected:
    ComPtr<CWebBrowserHost> host_ = MakeCom<CWebBrowserHost>();
    IDocHostUIHandler* handler_ = host_.Get();
};

TEST_F(BrowserHost, IsOneObjectWithAllItsInterfaces) {
    const auto identity = Query<IUnknown>(host_->AsUnknown());
    for (const IID& id : {__uuidof(IOleClientSite), __uuidof(IOleInPlaceSiteEx), __uuidof(IDocHostUIHandler),
                          __uuidof(IDispatch), __uuidof(IServiceProvider), __uuidof(IOleCommandTarget),
                          __uuidof(IHTMLChangeSink), __uuidof(IDropTarget),
                          __uuidof(IInternetSecurityManager), __uuidof(IWebbrowserHost)}) {
        ComPtr<IUnknown> face;
        ASSERT_THAT(host_->QueryInterface(id, reinterpret_cast<void**>(face.GetAddressOf())),
                    HasStatus(S_OK));
        EXPECT_EQ(Query<IUnknown>(face.Get()).Get(), identity.Get());
    }
}

TEST_F(BrowserHost, AllowsEverythingAndTrustsEveryAddress) {
    ComPtr<IInternetSecurityManager> manager;
    const IID& id = __uuidof(IInternetSecurityManager);
    ASSERT_THAT(host_->QueryService(id, id, reinterpret_cast<void**>(manager.GetAddressOf())),
                HasStatus(S_OK));
    DWORD zone = 9;
    EXPECT_THAT(manager->MapUrlToZone(L"http://e/", &zone, 0), HasStatus(S_OK));
    EXPECT_EQ(zone, 0u);
    DWORD policy[2] = {9, 9};
    EXPECT_THAT(manager->ProcessUrlAction(L"http://e/", 0x1400, reinterpret_cast<BYTE*>(policy),
                                          sizeof policy, nullptr, 0, 0, 0),
                HasStatus(S_OK));
    EXPECT_EQ(policy[0], 0u);
    EXPECT_EQ(policy[1], 9u);
    EXPECT_EQ(static_cast<unsigned>(manager->GetSecurityId(L"", nullptr, nullptr, 0)), 0x800C0011u);
    void* none = &zone;
    EXPECT_THAT(host_->QueryService(id, IID_IUnknown, &none), HasStatus(E_NOINTERFACE));
}

TEST_F(BrowserHost, SwallowsTheKeysOfABrowser) {
    EXPECT_TRUE(IsSwallowedKey(VK_OEM_PLUS, true));
    EXPECT_FALSE(IsSwallowedKey(VK_OEM_PLUS, false));
    EXPECT_TRUE(IsSwallowedKey(VK_F5, true));
    MSG message = {nullptr, WM_KEYDOWN, VK_F5};
    EXPECT_THAT(handler_->TranslateAccelerator(&message, nullptr, 0), HasStatus(S_OK));
    message.message = WM_KEYUP;
    EXPECT_THAT(handler_->TranslateAccelerator(&message, nullptr, 0), HasStatus(S_FALSE));
}

TEST_F(BrowserHost, SilencesScriptErrorsForAPageThatSaysSo) {
    const auto exec = [this](const GUID* group, DWORD command, VARIANT* out) {
        return host_->Exec(group, command, 0, nullptr, out);
    };
    Variant goOn;
    EXPECT_EQ(exec(nullptr, kShowScriptError, &goOn), OLECMDERR_E_NOTSUPPORTED);
    EXPECT_EQ(exec(&IID_IUnknown, kShowScriptError, &goOn), OLECMDERR_E_UNKNOWNGROUP);
    EXPECT_EQ(exec(&kDocHostCommands, 41, &goOn), OLECMDERR_E_UNKNOWNGROUP);
    EXPECT_THAT(exec(&kDocHostCommands, kShowScriptError, &goOn), HasStatus(E_NOTIMPL));
    EXPECT_TRUE(goOn.Is(VT_EMPTY));

    ComPtr<IDispatch> console;
    ASSERT_THAT(host_->GetPlugin(L"console", console.GetAddressOf()), HasStatus(S_OK));
    ASSERT_THAT(PutMember(console.Get(), L"showJsError", false).status, HasStatus(S_OK));
    EXPECT_THAT(exec(&kDocHostCommands, kShowScriptError, &goOn), HasStatus(S_OK));
    EXPECT_TRUE(goOn.Is(VT_BOOL) && goOn.boolVal == VARIANT_TRUE);
    EXPECT_THAT(exec(&kDocHostCommands, kShowScriptError, nullptr), HasStatus(S_OK));
    host_->Close();
}

TEST_F(BrowserHost, ShowsADialogWithoutMenusAndDrops) {
    DOCHOSTUIINFO info = {sizeof info};
    info.dwFlags = 0x100;
    EXPECT_THAT(host_->GetHostInfo(&info), HasStatus(S_OK));
    EXPECT_EQ(info.dwFlags, 0x107u);
    EXPECT_THAT(host_->ShowContextMenu(0, nullptr, nullptr, nullptr), HasStatus(S_OK)) << "no menu";
    DWORD entered = DROPEFFECT_COPY, over = DROPEFFECT_COPY;
    EXPECT_THAT(host_->DragEnter(nullptr, 0, {}, &entered), HasStatus(S_OK));
    EXPECT_THAT(host_->DragOver(0, {}, &over), HasStatus(S_OK));
    EXPECT_EQ(entered | over, 0u);
}

}  // namespace
}  // namespace tarvik
