#include "plugins/system/environment.h"

#include <shlobj.h>

#include "tarvik/text.h"
#include "tests/plugins/system/system_fixture.h"

namespace tarvik {
namespace {

TEST_F(System, PublishesTheSpecialFoldersInTheEnvironment) {
    const auto published = [this](const wchar_t* name, const wchar_t* before) {
        SetEnvironmentVariableW(name, before);
        const auto plugin = Plugin(L"system");
        const InvokeResult value = CallMember(plugin.Get(), L"getEnvirVar", name);
        return value.value.Is(VT_BSTR) ? std::wstring(Bstr::View(value.value.bstrVal)) : L"no text";
    };
    for (const wchar_t* name :
         {L"DESKTOP", L"STARTMENU", L"STARTUP", L"PROGRAMS", L"COMMON_DESKTOP", L"COMMON_STARTMENU",
          L"COMMON_STARTUP", L"COMMON_PROGRAMS", L"SENDTO", L"MYDOCUMENTS"})
        EXPECT_TRUE(FileExists(published(name, L"stale"))) << Narrow(name);
    EXPECT_EQ(published(L"LOCALAPPDATA", L"of the parent"), L"of the parent");
    EXPECT_TRUE(FileExists(published(L"LOCALAPPDATA", nullptr)));
}

TEST_F(System, ReadsTextsOfUpTo519Characters) {
    for (const size_t length : {1, 518, 519, 520, 521, 5000}) {
        SCOPED_TRACE(length);
        const std::wstring text(length, L'\u00e9');
        SetEnvironmentVariableW(L"TARVIK_TEST", text.c_str());
        const std::string read = "BSTR " + (length < 520 ? Narrow(text) : std::string());
        EXPECT_EQ(Call(L"getEnvirVar", L"tarvik_test"), read);
        EXPECT_EQ(Call(L"expandEnvirPath", L"%TARVIK_TEST%"), read);
    }
    SetEnvironmentVariableW(L"TARVIK_TEST", L"value");
    EXPECT_EQ(Call(L"expandEnvirPath", L"a%TARVIK_TEST%b%TARVIK_NONE%"), "BSTR avalueb%TARVIK_NONE%");
    EXPECT_EQ(Call(L"getEnvirVar", L""), "NULL");
}

TEST_F(System, ChecksForAnAdministratorWithoutLeaks) {
    const std::string expected = IsUserAnAdmin() ? "BOOL true" : "BOOL false";
    const long before = CountHandles();
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(Get(L"administrator"), expected);
    EXPECT_EQ(CountHandles(), before);
    UniqueHandle token;
    EXPECT_FALSE(OpenThreadToken(GetCurrentThread(), TOKEN_QUERY, TRUE, token.Receive()))
        << "the thread no longer impersonates";
}

TEST_F(System, ReturnsTheCommandLine) {
    const InvokeResult args = GetMember(plugin_.Get(), L"cmdArgs");
    ASSERT_TRUE(args.value.Is(VT_DISPATCH));
    EXPECT_THAT(CallText(args.value.pdispVal, L"getOrgArg", 0), HasSubstr("test_system"));

    const auto own = MakeCom<CCmdArgs>(L"app.exe -x /Key \"two words\" name=value");
    EXPECT_EQ(CallText(own.Get(), L"getOrgArgsCount"), "I4 5");
    EXPECT_EQ(CallText(own.Get(), L"getOrgArg", 3), "BSTR two words");
    for (const int beyond : {-1, 5})
        EXPECT_EQ(CallText(own.Get(), L"getOrgArg", beyond), "NULL");
    EXPECT_EQ(CallText(own.Get(), L"isSwitchExist", L"/X"), "BOOL true");
    EXPECT_EQ(CallText(own.Get(), L"getArgPair", L"-KEY"), "BSTR two words");
}

}  // namespace
}  // namespace tarvik
