#include "plugins/console/console_plugin.h"

#include "tarvik/properties.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

class Console : public testing::Test {
  protected:
    template <class... Args>
    void Log(Args&&... args) {
        EXPECT_EQ(CallText(plugin_.Get(), L"log", std::forward<Args>(args)...), "EMPTY");
    }

    ComPtr<CConsolePlugin> plugin_ = MakeCom<CConsolePlugin>();
    DebugChannel channel_;
};

TEST_F(Console, WritesAFirstArgumentThatIsAString) {
    Log(L"100%s", L"b");
    Log(L"");
    Log(Variant::Text(std::wstring_view(L"cut\0off", 7)));
    Log(12, L"text");
    Log(nullptr);
    Log(plugin_.Get());
    EXPECT_EQ(CallText(plugin_.Get(), L"log"), StatusText(E_FAIL));
    EXPECT_EQ(GetText(plugin_.Get(), L"log"), "EMPTY");
    EXPECT_THAT(channel_.Texts(), ElementsAre("100%s\n", "\n", "cut\n"));
}

// Stands for all small plug-ins.
TEST_F(Console, RejectsUnknownNamesAndIds) {
    DISPID id = 0;
    EXPECT_THAT(IdOf(plugin_.Get(), L"Log", &id), HasStatus(DISP_E_UNKNOWNNAME));
    DISPPARAMS none = {};
    EXPECT_THAT(
        plugin_->Invoke(-7000, IID_NULL, kScriptLocale, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
        HasStatus(DISP_E_UNKNOWNNAME));
    ComPtr<ITypeInfo> info;
    EXPECT_THAT(plugin_->GetTypeInfo(0, kScriptLocale, info.GetAddressOf()), HasStatus(S_OK));
    EXPECT_THAT(plugin_->GetTypeInfo(1, kScriptLocale, info.ReleaseAndGetAddressOf()),
                HasStatus(DISP_E_BADINDEX));
}

}  // namespace
}  // namespace tarvik
