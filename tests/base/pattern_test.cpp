#include "base/pattern.h"

#include <chrono>
#include <functional>

#include "tests/support/test.h"

namespace tarvik {
namespace {

constexpr const wchar_t* kNothing = nullptr;

struct Case {
    const wchar_t* pattern;
    const wchar_t* text;
    const wchar_t* found;  // the whole match, or kNothing
};

std::ostream& operator<<(std::ostream& out, const Case& c) {
    return out << Narrow(c.pattern) << " in " << Narrow(c.text);
}

class PatternCase : public testing::TestWithParam<Case> {};

TEST_P(PatternCase, Finds) {
    const auto pattern = Pattern::Compile(GetParam().pattern);
    ASSERT_TRUE(pattern);
    const std::wstring_view text = GetParam().text;
    const auto match = pattern->Search(text);
    ASSERT_EQ(match.has_value(), GetParam().found != kNothing);
    if (!match) return;
    EXPECT_EQ(match->whole.In(text), GetParam().found);
}

INSTANTIATE_TEST_SUITE_P(Plain, PatternCase,
                         testing::Values(Case{L"bc", L"abcd", L"bc"}, Case{L"BC", L"abcd", kNothing},
                                         Case{L"a.c", L"xabc", L"abc"}, Case{L"", L"abc", L""},
                                         Case{L"\\.dll$", L"C:\\a\\x.dll", L".dll"},
                                         Case{L"\\.dll$", L"C:\\a\\X.DLL", kNothing},
                                         Case{L"\\.dll$", L"x.dll.txt", kNothing},
                                         Case{L"\\\\e", L"a\\e", L"\\e"}, Case{L"a\\*", L"aa*", L"a*"}));

INSTANTIATE_TEST_SUITE_P(Ends, PatternCase,
                         testing::Values(Case{L"^a", L"ba", kNothing}, Case{L"^a", L"ab", L"a"},
                                         Case{L"b^", L"ab^", L"b^"}, Case{L"^a|b", L"cb", kNothing},
                                         Case{L"a$b", L"a$b", L"a$b"}, Case{L"a\\$", L"a$b", L"a$"},
                                         Case{L"a\\\\$", L"a\\b a\\", L"a\\"},
                                         Case{L"a|b$", L"ac", kNothing}));

INSTANTIATE_TEST_SUITE_P(Sets, PatternCase,
                         testing::Values(Case{L"[b-d]+", L"abcde", L"bcd"}, Case{L"[^a-c]", L"abcd", L"d"},
                                         Case{L"[a-]+", L"x-a-", L"-a-"}, Case{L"[]a]+", L"xa]", L"a]"},
                                         Case{L"[\\d_]+", L"a1_2b", L"1_2"}, Case{L"[\\]]", L"a]", L"]"}));

INSTANTIATE_TEST_SUITE_P(Repeats, PatternCase,
                         testing::Values(Case{L"ab*", L"xabbb", L"abbb"}, Case{L"ab+", L"aabb", L"abb"},
                                         Case{L"ab?c", L"abbc ac", L"ac"}, Case{L"a.*c", L"abcbcb", L"abcbc"},
                                         Case{L"(ab)+c", L"ababc", L"ababc"}, Case{L"(a*)*b", L"aab", L"aab"},
                                         Case{L"(a?)+b", L"b", L"b"}, Case{L"(ab|a)(bc)?$", L"abc", L"abc"},
                                         Case{L"ba+a", L"baaa", L"baaa"}, Case{L"ba+?c", L"bc", L"bc"},
                                         Case{L"x*", L"aaa", L""}));

INSTANTIATE_TEST_SUITE_P(Groups, PatternCase,
                         testing::Values(Case{L"jpg|png", L"a.png", L"png"},
                                         Case{L"\\.(jpg|png)$", L"png.png", L".png"},
                                         Case{L"{a+}-\\0$", L"aa-a aaa-aaa", L"aaa-aaa"},
                                         Case{L"{.}{.}\\1\\0", L"xabba", L"abba"},
                                         Case{L"a()b", L"ab", L"ab"}, Case{L"({a}|b)\\0", L"bb", kNothing}));

INSTANTIATE_TEST_SUITE_P(Not, PatternCase,
                         testing::Values(Case{L"a!b", L"abac", L"a"}, Case{L"a!b$", L"ab", kNothing},
                                         Case{L"^!(a|b)", L"bc", kNothing}, Case{L"^!(a|b)c", L"cb", L"c"},
                                         Case{L"!!aab", L"xab", L"ab"}, Case{L"(!,.)+", L"ab,c", L"ab"}));

INSTANTIATE_TEST_SUITE_P(Abbreviations, PatternCase,
                         testing::Values(Case{L"\\a+", L"-aZ0_", L"aZ0"}, Case{L"\\b+", L"a \tb", L" \t"},
                                         Case{L"\\c+", L"1aZ0", L"aZ"}, Case{L"\\d+", L"a109b", L"109"},
                                         Case{L"\\h+", L"xfF09g", L"fF09"}, Case{L"\\n", L"a\r\nb", L"\r\n"},
                                         Case{L"a\\nb", L"a\nb", L"a\nb"}, Case{L"a\\n", L"a\rb", L"a\r"},
                                         Case{L"\\q", L"a 'b\"c' \"", L"'b\"c'"},
                                         Case{L"\\q", L"x \"it's\"", L"\"it's\""},
                                         Case{L"\\q", L"'a\"", kNothing}, Case{L"\\w", L"1ab2", L"ab"},
                                         Case{L"\\z", L"a12b", L"12"}, Case{L"\\x", L"axb", L"x"}));

TEST(PatternCompile, RefusesWhatIsNoExpression) {
    for (const wchar_t* text : {L"(a", L"a)", L"{a", L"a}", L"[a", L"[", L"[z-a]", L"*a", L"a|+", L"\\",
                                L"\\0", L"{a}\\1", L"!", L"[a-"}) {
        EXPECT_FALSE(Pattern::Compile(text)) << Narrow(text);
    }
    EXPECT_FALSE(Pattern::Compile(std::wstring(100'000, L'(')));
}

TEST(PatternCaptures, AreInTheOrderOfTheirBraces) {
    const std::wstring text = L"C:\\data\\img_042.png";
    const auto match = Pattern::Compile(L"{\\w}_{\\z}\\.({jpg}|{png})$")->Search(text);
    ASSERT_TRUE(match);
    ASSERT_EQ(match->captures.size(), 4u);
    EXPECT_EQ(match->captures[0]->In(text), L"img");
    EXPECT_EQ(match->captures[1]->In(text), L"042");
    EXPECT_FALSE(match->captures[2]) << "an alternative that was given up leaves no capture";
    EXPECT_EQ(match->captures[3]->In(text), L"png");
}

constexpr DWORD kSurvived = 1;

// Runs `work` on a thread with the smallest stack that a program here gets.
void RunOnSmallStack(const std::function<void()>& work) {
    const LPTHREAD_START_ROUTINE run = [](void* given) -> DWORD {
        (*static_cast<const std::function<void()>*>(given))();
        return kSurvived;
    };
    const UniqueHandle thread(CreateThread(nullptr, 1 << 20, run, const_cast<std::function<void()>*>(&work),
                                           STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr));
    ASSERT_TRUE(thread);
    WaitForSingleObject(thread.Get(), INFINITE);
    DWORD answer = 0;
    GetExitCodeThread(thread.Get(), &answer);
    EXPECT_EQ(answer, kSurvived) << "an overflow of the stack may end the thread alone";
}

// Expressions made to run for ever, or to go deep: each ends soon, and has found nothing.
TEST(PatternBounds, HoldForMaliciousExpressions) {
    const auto start = std::chrono::steady_clock::now();
    RunOnSmallStack([] {
        const std::wstring many(20'000, L'a');
        for (const wchar_t* text : {L"((a*)*)*b", L"(a|a)*b", L"(a|aa)+$b", L"^!((a|a)*b)", L"{(.+)+}\\0x",
                                    L"({((((((a))))))}|x)*b", L"((((((a|b)|b)|b)|b)|b)*)*c",
                                    L"{{{{{{{{{{a}}}}}}}}}}*b", L"(!!!!!!!!!!!!a.)*b"}) {
            EXPECT_FALSE(Pattern::Compile(text)->Search(many)) << Narrow(text);
        }
        EXPECT_FALSE(Pattern::Compile(std::wstring(20'000, L'a') + L"b")->Search(many));
        EXPECT_TRUE(Pattern::Compile(L"a" + std::wstring(100'000, L'*') + L"$")->Search(many));
    });
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(PatternBounds, LeaveLongPathsAlone) {
    EXPECT_TRUE(Pattern::Compile(L"^(a|b)+$")->Search(std::wstring(kPathLength, L'b')));
    EXPECT_TRUE(Pattern::Compile(L"^({a}|{b})+$")->Search(std::wstring(kPathLength, L'b')));
    const std::wstring path = L"C:" + std::wstring(30'000, L'x') + L".dll";
    EXPECT_TRUE(Pattern::Compile(L"^\\c:.*\\.dll$")->Search(path));
    EXPECT_TRUE(Pattern::Compile(L"\\.dll$")->Search(path));
    EXPECT_TRUE(Pattern::Compile(L":\\a+\\.(\\c)*$")->Search(path));
    // Each character of a repeated choice costs depth, but a path has room for no more than this.
    EXPECT_TRUE(Pattern::Compile(L"^(((a|x)|b)|c)+$")->Search(std::wstring(kPathLength, L'x')));
}

}  // namespace
}  // namespace tarvik
