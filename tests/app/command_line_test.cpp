#include "app/command_line/command_line.h"

#include <gtest/gtest.h>

#include "base/text.h"

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

std::ostream& operator<<(std::ostream& out, const Case& c) {
    return out << Narrow(c.key) << " of " << Narrow(c.arguments);
}

class CommandLineCase : public testing::TestWithParam<Case> {};

TEST_P(CommandLineCase, IsReadAsPairsAndSwitches) {
    const CCommandLine line((L"app.exe " + std::wstring(GetParam().arguments)).c_str());
    EXPECT_EQ(ValueOf(line, GetParam().key), GetParam().value);
    EXPECT_EQ(line.HasSwitch(GetParam().key), GetParam().isSwitch);
}

INSTANTIATE_TEST_SUITE_P(
    Marks, CommandLineCase,
    testing::Values(Case{L"-x -y z", L"x", "none", true}, Case{L"-x -y z", L"y", "=z", false},
                    Case{L"-x", L"x", "none", true}, Case{L"foo", L"FOO", "none", true},
                    Case{L"foo", L"-foo", "none", true}, Case{L"foo", L"--foo", "none", false},
                    Case{L"-a -", L"a", "none", true}, Case{L"-a -", L"", "none", true},
                    Case{L"--k v", L"--k", "=v", false}, Case{L"--k v", L"k", "none", false},
                    Case{L"/d \"a b\"", L"d", "=a b", false}, Case{L"-d", L"d", "none", true},
                    Case{L"-k \"\"", L"k", "=", false}, Case{L"-a b c", L"c", "none", true},
                    Case{L"\"\" -x", L"", "none", true}));

INSTANTIATE_TEST_SUITE_P(
    Equals, CommandLineCase,
    testing::Values(Case{L"a=1 A=2", L"a", "=1", false}, Case{L"a=1 -a 2", L"A", "=1", false},
                    Case{L"-d=x", L"d", "none", false}, Case{L"-d=x", L"--d", "=x", false},
                    Case{L"a=b=c", L"a", "=b=c", false}, Case{L"k=", L"k=", "none", true},
                    Case{L"=v", L"=v", "none", true}, Case{L"-k= v", L"k=", "=v", false},
                    Case{L"-a k=v", L"a", "=k=v", false}, Case{L"\"k=v\r\nw\"", L"k", "=v", false}));

TEST(CommandLine, TakesFieldsThatAreTooLongAsAWhole) {
    const std::wstring fits(99, L'x');
    const std::wstring longer(100, L'x');
    EXPECT_NE(CCommandLine((L"a k=" + fits).c_str()).GetValue(L"k"), nullptr);
    EXPECT_NE(CCommandLine((L"a " + fits + L"=v").c_str()).GetValue(fits.c_str()), nullptr);
    EXPECT_TRUE(CCommandLine((L"a k=" + longer).c_str()).HasSwitch((L"k=" + longer).c_str()));
    EXPECT_TRUE(CCommandLine((L"a " + longer + L"=v").c_str()).HasSwitch((longer + L"=v").c_str()));
}

TEST(CommandLine, KeepsTheRawArguments) {
    const CCommandLine line(L"\"C:\\my app.exe\" a=1 \"b c\"");
    ASSERT_EQ(line.argc, 3);
    EXPECT_STREQ(line.argv[0], L"C:\\my app.exe");
    EXPECT_STREQ(line.argv[2], L"b c");
    EXPECT_FALSE(line.HasSwitch(nullptr));
    EXPECT_EQ(line.GetValue(nullptr), nullptr);
    EXPECT_GE(CCommandLine().argc, 1);
}

}  // namespace
}  // namespace tarvik
