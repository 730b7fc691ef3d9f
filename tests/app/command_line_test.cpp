#include "app/command_line/command_line.h"

#include "tarvik/text.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

std::string ValueOf(const CCommandLine& line, const wchar_t* key) {
    const wchar_t* value = line.GetValue(key);
    return value ? "=" + Narrow(value) : "none";
}

struct Case {
    const wchar_t* arguments;
    const wchar_t* key;
    const char* value;  // "=..." or "none"
    bool isSwitch;
};

constexpr Case kCases[] = {{L"-x -y z", L"x", "none", true},    {L"-x -y z", L"y", "=z", false},
                           {L"foo", L"FOO", "none", true},      {L"foo", L"-foo", "none", true},
                           {L"foo", L"--foo", "none", false},   {L"-a -", L"a", "none", true},
                           {L"-a -", L"", "none", true},        {L"--k v", L"--k", "=v", false},
                           {L"--k v", L"k", "none", false},     {L"/d \"a b\"", L"d", "=a b", false},
                           {L"-k \"\"", L"k", "=", false},      {L"-a b c", L"c", "none", true},
                           {L"\"\" -x", L"", "none", true},     {L"a=1 A=2", L"a", "=1", false},
                           {L"a=1 -a 2", L"A", "=1", false},    {L"-d=x", L"d", "none", false},
                           {L"-d=x", L"--d", "=x", false},      {L"a=b=c", L"a", "=b=c", false},
                           {L"k=", L"k=", "none", true},        {L"=v", L"=v", "none", true},
                           {L"-k= v", L"k=", "=v", false},      {L"-a k=v", L"a", "=k=v", false},
                           {L"\"k=v\r\nw\"", L"k", "=v", false}};

TEST(CommandLine, ParsesPairsAndSwitches) {
    for (const Case& c : kCases) {
        SCOPED_TRACE(Narrow(c.key) + " of " + Narrow(c.arguments));
        const CCommandLine line((L"app.exe " + std::wstring(c.arguments)).c_str());
        EXPECT_EQ(ValueOf(line, c.key), c.value);
        EXPECT_EQ(line.HasSwitch(c.key), c.isSwitch);
    }
}

TEST(CommandLine, TreatsPairsWithLongFieldsAsSwitches) {
    const std::wstring fits(99, L'x');
    const std::wstring longer(100, L'x');
    EXPECT_NE(CCommandLine((L"a k=" + fits).c_str()).GetValue(L"k"), nullptr);
    EXPECT_NE(CCommandLine((L"a " + fits + L"=v").c_str()).GetValue(fits.c_str()), nullptr);
    EXPECT_TRUE(CCommandLine((L"a k=" + longer).c_str()).HasSwitch((L"k=" + longer).c_str()));
    EXPECT_TRUE(CCommandLine((L"a " + longer + L"=v").c_str()).HasSwitch((longer + L"=v").c_str()));
}

}  // namespace
}  // namespace tarvik
