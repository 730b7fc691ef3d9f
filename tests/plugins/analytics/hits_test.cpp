#include <set>

#include "plugins/analytics/analytics_plugin.h"
#include "tarvik/text.h"
#include "tests/support/test.h"

// Hits that arrive at the server that beside_server starts.
namespace tarvik {
namespace {

std::wstring Variable(const wchar_t* name) {
    return ReadPath([&](wchar_t* buffer) { GetEnvironmentVariableW(name, buffer, kPathLength); });
}

class Hits : public testing::Test {
  protected:
    Hits() { CallMember(plugin_.Get(), L"set", L"UA-1 b", L"My App", L"1.0 b"); }

    // The next request, in order of arrival.
    static std::string Next() {
        static int number = 0;
        const std::wstring path = Variable(L"TARVIK_HITS") + L"\\" + std::to_wstring(++number);
        EXPECT_TRUE(PumpUntil([&] { return FileExists(path); }));
        return ReadFileBytes(path);
    }
    static std::string BodyOf(const std::string& request) { return request.substr(request.find("\n\n") + 2); }
    // The end of every body.
    static std::string Common() {
        wchar_t language[LOCALE_NAME_MAX_LENGTH] = {};
        GetUserDefaultLocaleName(language, LOCALE_NAME_MAX_LENGTH);
        return "v=1&tid=UA-1 b&cid=" + cid_ + "&ul=" + Narrow(language) +
               "&an=My%20App&av=1.0 b&vp=" + std::to_string(GetSystemMetrics(SM_CXSCREEN)) + "x" +
               std::to_string(GetSystemMetrics(SM_CYSCREEN));
    }
    // The test cannot predict the client id, so it takes the one of the first body.
    static void StoreClientId(const std::string& body) {
        const size_t begin = body.find("&cid=") + 5;
        cid_ = body.substr(begin, body.find('&', begin) - begin);
        EXPECT_EQ(cid_.size(), 36u) << cid_;
        EXPECT_EQ(cid_.find_first_not_of("0123456789abcdefABCDEF-"), std::string::npos) << cid_;
    }

    const ComPtr<CGoogleAnalyticsPlugin> plugin_ = MakeCom<CGoogleAnalyticsPlugin>(AnalyticsEndpoint{
        L"127.0.0.1", static_cast<INTERNET_PORT>(_wtoi(Variable(L"TARVIK_HITS_PORT").c_str()))});
    static inline std::string cid_;
};

TEST_F(Hits, ArriveByteForByte) {
    EXPECT_EQ(ResultText(CallMember(plugin_.Get(), L"page", L"home")), "EMPTY");
    const std::string request = Next();
    StoreClientId(BodyOf(request));
    EXPECT_EQ(BodyOf(request), "t=appview&cd=home&" + Common());
    EXPECT_THAT(request, testing::StartsWith("POST /collect HTTP/1.1\n"));
    EXPECT_THAT(request, HasSubstr("Content-Type: application/x-www-form-urlencoded\n"));
    EXPECT_THAT(request, HasSubstr("\nUser-Agent: Quillon Metrics/0.1 (Windows NT "));
    EXPECT_THAT(request, HasSubstr(", WOW64)\n"));

    const auto event = [&](Argument category, Argument action) {
        CallMember(plugin_.Get(), L"event", std::move(category), std::move(action), L"ignored");
        return BodyOf(Next());
    };
    EXPECT_EQ(event(L"a b", L"c/d"), "t=event&ec=a%20b&ea=c%2Fd&" + Common());
    EXPECT_EQ(event(L"c", 5), "t=event&ec=c&ea=5&" + Common());
    EXPECT_EQ(event(L"c", true), "t=event&ec=c&ea=65535&" + Common()) << "the bits of a boolean";
}

TEST_F(Hits, OverlapAndRelease) {
    constexpr int kHits = 20;
    CallMember(plugin_.Get(), L"page", L"first");
    Next();
    const long before = CountHandles();
    for (int i = 0; i < kHits; ++i)
        CallMember(plugin_.Get(), L"page", (L"p" + std::to_wstring(i)).c_str());
    std::set<std::string> bodies;
    for (int i = 0; i < kHits; ++i)
        bodies.insert(BodyOf(Next()));
    EXPECT_EQ(bodies.size(), size_t{kHits});
    EXPECT_TRUE(PumpUntil([&] { return CountHandles() < before + kHits; }))
        << before << " to " << CountHandles();
}

}  // namespace
}  // namespace tarvik
