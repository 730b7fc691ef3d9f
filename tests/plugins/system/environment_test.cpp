#include "plugins/system/environment.h"

#include <shlobj.h>

#include "tarvik/text.h"
#include "tests/plugins/system/system_fixture.h"

namespace tarvik {
namespace {

// Sets or deletes a variable, and restores it at the end.
class Environment {
  public:
    Environment(const wchar_t* name, const wchar_t* value) : name_(name) {
        before_.resize(GetEnvironmentVariableW(name, nullptr, 0));
        existed_ = GetEnvironmentVariableW(name, before_.data(), static_cast<DWORD>(before_.size())) != 0;
        SetEnvironmentVariableW(name, value);
    }
    ~Environment() { SetEnvironmentVariableW(name_, existed_ ? before_.c_str() : nullptr); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

  private:
    const wchar_t* const name_;
    std::wstring before_;
    bool existed_ = false;
};

TEST_F(System, PublishesTheSpecialFoldersInTheEnvironment) {
    const Environment stale(L"DESKTOP", L"stale");
    const auto published = [this](const wchar_t* name) {
        const auto plugin = Plugin(L"system");
        const InvokeResult value = CallMember(plugin.Get(), L"getEnvirVar", name);
        return value.value.Is(VT_BSTR) ? std::wstring(Bstr::View(value.value.bstrVal)) : L"no text";
    };
    for (const wchar_t* name :
         {L"DESKTOP", L"STARTMENU", L"STARTUP", L"PROGRAMS", L"COMMON_DESKTOP", L"COMMON_STARTMENU",
          L"COMMON_STARTUP", L"COMMON_PROGRAMS", L"SENDTO", L"MYDOCUMENTS"})
        EXPECT_TRUE(FileExists(published(name))) << Narrow(name) << " " << Narrow(published(name));
    {
        const Environment given(L"LOCALAPPDATA", L"of the parent");
        EXPECT_EQ(published(L"LOCALAPPDATA"), L"of the parent");
    }
    const Environment missing(L"LOCALAPPDATA", nullptr);
    EXPECT_TRUE(FileExists(published(L"LOCALAPPDATA")));
}

TEST_F(System, ReadsTextsOfUpTo519Characters) {
    for (const size_t length : {1, 518, 519, 520, 521, 5000}) {
        SCOPED_TRACE(length);
        const std::wstring text(length, L'\u00e9');
        const Environment variable(L"TARVIK_TEST", text.c_str());
        const std::string read = "BSTR " + (length < 520 ? Narrow(text) : std::string());
        EXPECT_EQ(CallSystem(L"getEnvirVar", L"tarvik_test"), read);
        EXPECT_EQ(CallSystem(L"expandEnvirPath", L"%TARVIK_TEST%"), read);
    }
    const Environment variable(L"TARVIK_TEST", L"value");
    EXPECT_EQ(CallSystem(L"expandEnvirPath", L"a%TARVIK_TEST%b%TARVIK_NONE%"), "BSTR avalueb%TARVIK_NONE%");
    EXPECT_EQ(CallSystem(L"getEnvirVar", L"TARVIK_NONE"), "NULL");
    EXPECT_EQ(CallSystem(L"getEnvirVar", L""), "NULL");
}

TEST_F(System, ChecksForAnAdministratorWithoutLeaks) {
    const std::string expected = IsUserAnAdmin() ? "BOOL true" : "BOOL false";
    EXPECT_EQ(Get(L"administrator"), expected);
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
    const auto call = [&](const wchar_t* member, auto argument) {
        return CallText(own.Get(), member, argument);
    };
    EXPECT_EQ(CallText(own.Get(), L"getOrgArgsCount"), "I4 5");
    EXPECT_EQ(call(L"getOrgArg", 3), "BSTR two words");
    for (const int beyond : {-1, 5})
        EXPECT_EQ(call(L"getOrgArg", beyond), "NULL");
    EXPECT_EQ(call(L"isSwitchExist", L"/X"), "BOOL true");
    EXPECT_EQ(call(L"getArgPair", L"-KEY"), "BSTR two words");
    EXPECT_EQ(call(L"getArgPair", L"x"), "NULL");
}

}  // namespace
}  // namespace tarvik
