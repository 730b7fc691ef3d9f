#include "base/pattern.h"

#include <functional>

#include "tarvik/text.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

constexpr const wchar_t* kNothing = nullptr;

struct Case {
    const wchar_t* pattern;
    const wchar_t* text;
    const wchar_t* found;  // the whole match, or kNothing
};

constexpr Case kCases[] = {
    {L"bc", L"abcd", L"bc"},
    {L"BC", L"abcd", kNothing},
    {L"", L"abc", L""},
    {L"\\.dll$", L"C:\\a\\x.dll", L".dll"},
    {L"\\.dll$", L"x.dll.txt", kNothing},
    {L"\\\\e", L"a\\e", L"\\e"},
    {L"a.c", L"xabc", L"abc"},
    // Anchors.
    {L"^a", L"ba", kNothing},
    {L"b^", L"ab^", L"b^"},
    {L"^a|b", L"cb", kNothing},
    {L"a$b", L"a$b", L"a$b"},
    {L"a\\$", L"a$b", L"a$"},
    {L"a\\\\$", L"a\\b a\\", L"a\\"},
    {L"a|b$", L"ac", kNothing},
    // Sets.
    {L"[b-d]+", L"abcde", L"bcd"},
    {L"[^a-c]", L"abcd", L"d"},
    {L"[a-]+", L"x-a-", L"-a-"},
    {L"[]a]+", L"xa]", L"a]"},
    {L"[\\d_]+", L"a1_2b", L"1_2"},
    {L"[\\]]", L"a]", L"]"},
    {L"[\\w.\\z]+", L"-\\.aZ9wz!", L".aZ9wz"},
    {L"[^\\n]+", L"\nn.\r", L"n."},
    {L"[\\d-z]+", L"a1-z", L"1-z"},
    // Repetitions.
    {L"ab*", L"xabbb", L"abbb"},
    {L"ab?c", L"abbc ac", L"ac"},
    {L"a.*c", L"abcbcb", L"abcbc"},
    {L"(ab)+c", L"ababc", L"ababc"},
    {L"(a*)*b", L"aab", L"aab"},
    {L"(a?)+b", L"b", L"b"},
    {L"(ab|a)(bc)?$", L"abc", L"abc"},
    {L"ba+a", L"baaa", L"baaa"},
    {L"ba+?c", L"bc", L"bc"},
    // Groups and captures.
    {L"\\.(jpg|png)$", L"png.png", L".png"},
    {L"{a+}-\\0$", L"aa-a aaa-aaa", L"aaa-aaa"},
    {L"{.}{.}\\1\\0", L"xabba", L"abba"},
    {L"a()b", L"ab", L"ab"},
    {L"({a}|b)\\0", L"bb", kNothing},
    // Negative look-ahead.
    {L"a!b", L"abac", L"a"},
    {L"a!b$", L"ab", kNothing},
    {L"^!(a|b)c", L"cb", L"c"},
    {L"!!aab", L"xab", L"ab"},
    {L"(!,.)+", L"ab,c", L"ab"},
    // Abbreviations.
    {L"\\a+", L"-aZ0_", L"aZ0"},
    {L"\\b+", L"a \tb", L" \t"},
    {L"\\c+", L"1aZ0", L"aZ"},
    {L"\\h+", L"xfF09g", L"fF09"},
    {L"\\n", L"a\r\nb", L"\r\n"},
    {L"a\\nb", L"a\nb", L"a\nb"},
    {L"\\q", L"a 'b\"c' \"", L"'b\"c'"},
    {L"\\q", L"'a\"", kNothing},
    {L"\\w", L"1ab2", L"ab"},
    {L"\\z", L"a12b", L"12"},
    {L"\\x", L"axb", L"x"},
};

TEST(Pattern, MatchesTheLeftmostText) {
    for (const Case& c : kCases) {
        SCOPED_TRACE(Narrow(c.pattern) + " in " + Narrow(c.text));
        const auto pattern = Pattern::Compile(c.pattern);
        ASSERT_TRUE(pattern);
        const auto match = pattern->Search(c.text);
        ASSERT_EQ(match.has_value(), c.found != kNothing);
        EXPECT_TRUE(!match || match->whole.In(c.text) == c.found);
    }
}

TEST(PatternCompile, RejectsSyntaxErrors) {
    for (const wchar_t* text : {L"(a", L"a)", L"{a", L"a}", L"[a", L"[", L"[z-a]", L"*a", L"a|+", L"\\",
                                L"\\0", L"{a}\\1", L"!", L"[a-", L"[\\q]", L"[a-\\w]", L"[\\"}) {
        EXPECT_FALSE(Pattern::Compile(text)) << Narrow(text);
    }
    EXPECT_FALSE(Pattern::Compile(std::wstring(100'000, L'(')));
}

TEST(PatternCaptures, AreOrderedByTheirOpeningBraces) {
    const std::wstring text = L"C:\\data\\img_042.png";
    const auto match = Pattern::Compile(L"{\\w}_{\\z}\\.({jpg}|{png})$")->Search(text);
    ASSERT_TRUE(match);
    ASSERT_EQ(match->captures.size(), 4u);
    EXPECT_EQ(match->captures[0]->In(text), L"img");
    EXPECT_EQ(match->captures[1]->In(text), L"042");
    EXPECT_FALSE(match->captures[2]) << "a failed alternative leaves no capture";
    EXPECT_EQ(match->captures[3]->In(text), L"png");
}

constexpr DWORD kSurvived = 1;

// Runs `work` on a thread with a stack of 1 MB, the smallest that the program has.
void RunOnSmallStack(const std::function<void()>& work) {
    const LPTHREAD_START_ROUTINE run = [](void* given) -> DWORD {
        (*static_cast<const std::function<void()>*>(given))();
        return kSurvived;
    };
    const UniqueHandle thread(CreateThread(nullptr, 1 << 20, run, const_cast<std::function<void()>*>(&work),
                                           STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr));
    ASSERT_TRUE(thread);
    WaitForSingleObject(thread.Get(), INFINITE);
    DWORD exitCode = 0;
    GetExitCodeThread(thread.Get(), &exitCode);
    EXPECT_EQ(exitCode, kSurvived) << "a stack overflow may end the thread only";
}

// Expressions that would take exponential time or deep recursion end, and find nothing.
TEST(PatternLimits, StopMaliciousExpressions) {
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
}

TEST(PatternLimits, AllowLongPaths) {
    EXPECT_TRUE(Pattern::Compile(L"^(a|b)+$")->Search(std::wstring(kPathLength, L'b')));
    EXPECT_TRUE(Pattern::Compile(L"^({a}|{b})+$")->Search(std::wstring(kPathLength, L'b')));
    const std::wstring path = L"C:" + std::wstring(30'000, L'x') + L".dll";
    EXPECT_TRUE(Pattern::Compile(L"^\\c:.*\\.dll$")->Search(path));
    EXPECT_TRUE(Pattern::Compile(L"\\.dll$")->Search(path));
    EXPECT_TRUE(Pattern::Compile(L":\\a+\\.(\\c)*$")->Search(path));
    // Each character of a repeated group costs recursion, but no path is longer than this one.
    EXPECT_TRUE(Pattern::Compile(L"^(((a|x)|b)|c)+$")->Search(std::wstring(kPathLength, L'x')));
}

}  // namespace
}  // namespace tarvik
