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

}  // namespace
}  // namespace tarvik
