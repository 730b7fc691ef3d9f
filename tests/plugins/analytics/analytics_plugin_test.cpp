#include "plugins/analytics/analytics_plugin.h"

#include "app/log/log.h"
#include "tests/support/test.h"
#include "tests/support/web_server.h"

namespace tarvik {
namespace {

// With all logging enabled.
class Analytics : public testing::Test {
  protected:
    Analytics() { processLog.flags = kLogTrace | kLogError; }
    ~Analytics() override {
        EXPECT_EQ(channel_.Texts().size(), lines_) << "one line for each hit";
        processLog.flags = flags_;
    }

    static ComPtr<CGoogleAnalyticsPlugin> PluginTo(WORD port) {
        const auto plugin = MakeCom<CGoogleAnalyticsPlugin>(AnalyticsEndpoint{L"127.0.0.1", port});
        CallMember(plugin.Get(), L"set", L"UA-1", L"My App", L"1.0");
        return plugin;
    }
    static void Page(CGoogleAnalyticsPlugin* plugin, const wchar_t* screen) {
        EXPECT_THAT(CallMember(plugin, L"page", screen).status, HasStatus(S_OK));
    }
    // The text of the line that a hit writes to the log.
    std::string Line() {
        if (!PumpUntil([&] { return channel_.Texts().size() > lines_; })) return "none";
        const std::string line = channel_.Texts()[lines_++];
        return line.substr(line.find(' ') + 1);
    }

    DebugChannel channel_;
    size_t lines_ = 0;

  private:
    const DWORD flags_ = processLog.flags;
};

TEST_F(Analytics, RejectsInvalidCalls) {
    const auto plugin = PluginTo(ClosedPort());
    EXPECT_THAT(CallMember(plugin.Get(), L"page", 5).status, HasStatus(E_FAIL));
    EXPECT_THAT(CallMember(plugin.Get(), L"set", L"a", L"b").status, HasStatus(E_FAIL));
    EXPECT_THAT(CallMember(plugin.Get(), L"set", L"a", L"b", 1).status, HasStatus(E_FAIL));
    EXPECT_THAT(CallMember(plugin.Get(), L"event", L"c").status, HasStatus(S_OK));
    EXPECT_THAT(CallMember(plugin.Get(), L"event", 1, 2).status, HasStatus(S_OK));
    EXPECT_THAT(channel_.Texts(), IsEmpty());
}

TEST_F(Analytics, LogsAHitThatCannotBeEncoded) {
    const std::string emptyText = "CAnalytics::Send catch: 80070057\n";
    Page(PluginTo(ClosedPort()).Get(), L"");
    EXPECT_EQ(Line(), emptyText);
    Page(MakeCom<CGoogleAnalyticsPlugin>().Get(), L"home");
    EXPECT_EQ(Line(), emptyText) << "nothing was set";
}

TEST_F(Analytics, LogsAHitThatDoesNotArrive) {
    const std::string failed = "CAnalytics::StatusCallback 00200000\n";
    Page(PluginTo(ClosedPort()).Get(), L"home");
    EXPECT_EQ(Line(), failed);
    for (const char* begun : {"", "\x16\x03\x03\x01", "HTTP/1.1 400 Bad Request\r\n\r\n"}) {
        const WebServer closes([&](const WebExchange& exchange) { exchange.Send(begun); });
        Page(PluginTo(closes.Port()).Get(), L"home");
        EXPECT_EQ(Line(), failed) << begun;
    }
    {
        const WebServer silent([](const WebExchange& exchange) { exchange.WaitForDisconnect(); });
        Page(PluginTo(silent.Port()).Get(), L"home");
        EXPECT_TRUE(PumpUntil([&] { return silent.Connections() > 0; }));
        EXPECT_EQ(channel_.Texts().size(), lines_) << "sending does not block";
    }
    EXPECT_EQ(Line(), failed) << "at the latest when the server has closed the connection";
}

TEST(ClientId, IsTheTextInBraces) {
    EXPECT_EQ(ClientId(L"{12340001-0000}"), L"12340001-0000");
    EXPECT_EQ(ClientId(L"{no end"), L"no end");
    EXPECT_EQ(ClientId(L"no braces"), L"no%20braces");
    EXPECT_THROW(ClientId(L"{}"), StatusError) << "only characters to escape";
}

}  // namespace
}  // namespace tarvik
