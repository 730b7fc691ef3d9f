#include "plugins/console/console_plugin.h"

#include "script/object.h"
#include "tarvik/properties.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

class Console : public testing::Test {
  protected:
    template <class... Args>
    HRESULT Log(Args&&... args) {
        return CallMember(plugin_.Get(), L"log", std::forward<Args>(args)...).status;
    }
    std::string ShowJsError() { return GetText(plugin_.Get(), L"showJsError"); }

    ComPtr<CConsolePlugin> plugin_ = MakeCom<CConsolePlugin>();
    DebugChannel channel_;
};

TEST_F(Console, WritesTheFirstArgumentAsALine) {
    EXPECT_THAT(Log(L"a", L"b"), HasStatus(S_OK));
    EXPECT_THAT(Log(L"100%s"), HasStatus(S_OK));
    EXPECT_THAT(Log(L""), HasStatus(S_OK));
    EXPECT_THAT(Log(Variant::Text(std::wstring_view(L"cut\0off", 7))), HasStatus(S_OK));
    EXPECT_THAT(channel_.texts, ElementsAre("a\n", "100%s\n", "\n", "cut\n"));
}

TEST_F(Console, WritesOnlyStrings) {
    EXPECT_THAT(Log(12, L"text"), HasStatus(S_OK));
    EXPECT_THAT(Log(nullptr), HasStatus(S_OK));
    EXPECT_THAT(Log(plugin_.Get()), HasStatus(S_OK));
    EXPECT_THAT(Log(), HasStatus(E_FAIL));
    const InvokeResult read = GetMember(plugin_.Get(), L"log");
    EXPECT_THAT(read.status, HasStatus(S_OK));
    EXPECT_EQ(ValueText(read.value), "EMPTY");
    EXPECT_THAT(channel_.texts, IsEmpty());
}

// Stands for all small plug-ins.
TEST_F(Console, RejectsUnknownNamesAndIds) {
    DISPID id = 0;
    for (const wchar_t* unknown : {L"", L"Log", L"logs"})
        EXPECT_THAT(IdOf(plugin_.Get(), unknown, &id), HasStatus(DISP_E_UNKNOWNNAME));
    EXPECT_THAT(IdOf(plugin_.Get(), nullptr, &id), HasStatus(E_INVALIDARG));
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
