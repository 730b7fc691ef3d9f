#include "host/browser_host.h"

#include "host/accelerators.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(BrowserHost, SwallowsBrowserAccelerators) {
    EXPECT_TRUE(IsSwallowedKey(VK_OEM_PLUS, true, false));
    EXPECT_FALSE(IsSwallowedKey(VK_OEM_PLUS, false, false));
    EXPECT_FALSE(IsSwallowedKey(VK_OEM_PLUS, true, true)) << "AltGr";
    EXPECT_TRUE(IsSwallowedKey(VK_F5, true, true));
    const auto host = MakeCom<CWebBrowserHost>();
    IDocHostUIHandler* const handler = host.Get();
    MSG message = {nullptr, WM_KEYDOWN, VK_F5};
    EXPECT_THAT(handler->TranslateAccelerator(&message, nullptr, 0), HasStatus(S_OK));
    message.message = WM_KEYUP;
    EXPECT_THAT(handler->TranslateAccelerator(&message, nullptr, 0), HasStatus(S_FALSE));
}

}  // namespace
}  // namespace tarvik
