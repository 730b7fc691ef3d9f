#include "base/pattern.h"

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
    {L"", L"abc", L""},
    {L"\\.dll$", L"x.dll.txt", kNothing},
    {L"\\\\e", L"a\\e", L"\\e"},
    // Anchors.
    {L"b^", L"ab^", L"b^"},
    {L"^a|b", L"cb", kNothing},
    {L"a$b", L"a$b", L"a$b"},
    {L"a\\\\$", L"a\\b a\\", L"a\\"},
    {L"a|b$", L"ac", kNothing},
    // Sets.
    {L"[b-d]+", L"abcde", L"bcd"},
    {L"[a-]+", L"x-a-", L"-a-"},
    {L"[]a]+", L"xa]", L"a]"},
    {L"[\\d_]+", L"a1_2b", L"1_2"},
    {L"[\\w.\\z]+", L"-\\.aZ9wz!", L".aZ9wz"},
    {L"[^\\n]+", L"\nn.\r", L"n."},
    {L"[\\d-z]+", L"a1-z", L"1-z"},
    // Repetitions.
    {L"a.*c", L"abcbcb", L"abcbc"},
    {L"(a*)*b", L"aab", L"aab"},
    {L"(a?)+b", L"b", L"b"},
    {L"(ab|a)(bc)?$", L"abc", L"abc"},
    {L"ba+a", L"baaa", L"baaa"},
    {L"ba+?c", L"bc", L"bc"},
    // Groups and captures.
    {L"\\.(jpg|png)$", L"png.png", L".png"},
    {L"{a+}-\\0$", L"aa-a aaa-aaa", L"aaa-aaa"},
    {L"{.}{.}\\1\\0", L"xabba", L"abba"},
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
    {L"\\q", L"a 'b\"c' \"", L"'b\"c'"},
    {L"\\q", L"'a\"", kNothing},
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
    std::vector<std::wstring> captures;
    for (const auto& capture : match->captures)
        captures.emplace_back(capture ? capture->In(text) : L"none");
    EXPECT_THAT(captures, ElementsAre(L"img", L"042", L"none", L"png"));
}

// Runs `work` on a thread with a stack of 1 MB, the smallest that the program has.
void RunOnSmallStack(void (*work)()) {
    constexpr DWORD kSurvived = 1;
    const LPTHREAD_START_ROUTINE run = [](void* work) -> DWORD {
        reinterpret_cast<void (*)()>(work)();
        return kSurvived;
    };
    const UniqueHandle thread(CreateThread(nullptr, 1 << 20, run, reinterpret_cast<void*>(work),
                                           STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr));
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

// Each character of a repeated group costs recursion, but no path is longer than these.
TEST(PatternLimits, AllowLongPaths) {
    for (const wchar_t* text : {L"^(a|x)+$", L"^({a}|{x})+$", L"^(((a|x)|b)|c)+$"})
        EXPECT_TRUE(Pattern::Compile(text)->Search(std::wstring(kPathLength, L'x'))) << Narrow(text);
    const std::wstring path = L"C:" + std::wstring(30'000, L'x') + L".dll";
    for (const wchar_t* text : {L"^\\c:.*\\.dll$", L"\\.dll$", L":\\a+\\.(\\c)*$"})
        EXPECT_TRUE(Pattern::Compile(text)->Search(path)) << Narrow(text);
}

}  // namespace
}  // namespace tarvik
