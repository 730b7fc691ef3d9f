#include "page_control/bridge/page_thread.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

using State = PageThread::State;

// Records the commands that are posted; the test replies to them in any order.
class ScriptedEngine : public DevTools {
  public:
    void Post(std::string_view, std::string_view method, Parameters, ReplyHandler onReply) override {
        posted.emplace_back(method);
        handlers_.emplace(method, std::move(onReply));
    }
    void Batch(const std::function<void()>& posts) override { posts(); }
    Json Call(std::string_view, std::string_view, Parameters, DWORD) override {
        return {{"sessionId", "session"}};
    }
    void Listen(std::string_view, EventHandler) override {}
    void ListenToFrames(std::string_view, FrameHandler) override {}
    bool WaitUntil(const std::function<bool()>& condition, DWORD) override { return condition(); }
    bool IsWaiting() const override { return false; }
    bool IsOpen() const override { return true; }
    const std::string& UserAgent() const override { return userAgent_; }
    const std::wstring& DownloadFolder() const override { return downloadFolder_; }
    std::string OpenPage() override { return "page"; }
    void OpenPage(OpenHandler) override {}
    void ClosePage(const std::string&) override {}

    // Replies to the oldest command of this name.
    void Reply(const std::string& method, const Json& result) {
        const auto oldest = handlers_.lower_bound(method);
        ASSERT_TRUE(oldest != handlers_.end() && oldest->first == method) << method;
        const ReplyHandler handler = std::move(oldest->second);
        handlers_.erase(oldest);
        if (handler) handler(result.is_null() ? nullptr : &result);
    }

    void ForgetCommands() { handlers_.clear(); }

    std::vector<std::string> posted;

  private:
    std::multimap<std::string, ReplyHandler> handlers_;
    const std::string userAgent_;
    const std::wstring downloadFolder_;
};

class Thread : public testing::Test {
  protected:
    Thread() { Posted(); }  // what a new target sends

    // The commands since the last look.
    std::vector<std::string> Posted() { return std::exchange(engine_->posted, {}); }
    void Send() {
        thread_->Send("message", [this](std::string_view text) { outcomes_.emplace_back(text); });
    }
    void ReplyToEvaluation(const char* text) {
        engine_->Reply("Runtime.evaluate", {{"result", {{"value", text}}}});
    }
    void PauseInCall() {
        thread_->OnCall();
        thread_->OnPaused();
    }

    const std::shared_ptr<ScriptedEngine> engine_ = std::make_shared<ScriptedEngine>();
    PageTarget target_{engine_};
    std::shared_ptr<PageThread> thread_ = std::make_shared<PageThread>(target_, 1);
    std::vector<std::string> outcomes_;
};

TEST_F(Thread, TracksTheStateOfThePage) {
    const std::map<char, std::function<void()>> events = {
        {'c', [&] { thread_->OnCall(); }},
        {'r', [&] { thread_->OnResult(false); }},
        {'s', [&] { Send(); }},
        {'q', [&] { ReplyToEvaluation("queued"); }},
        {'p', [&] { thread_->OnPaused(); }},
        {'R', [&] { thread_->OnResumed(); }},
    };
    constexpr std::pair<const char*, State> kCases[] = {
        {"c", State::kCalling},     {"cr", State::kRunning},   {"cs", State::kRunning},
        {"cq", State::kCalling},    {"cp", State::kAwaiting},  {"cpr", State::kStopped},
        {"cps", State::kStopped},   {"cpR", State::kCalling},  {"cpq", State::kQueued},
        {"cpqr", State::kStopped},  {"cpqs", State::kStopped}, {"cpqc", State::kQueued},
        {"cpqp", State::kAwaiting}, {"cpqR", State::kCalling}, {"cqp", State::kAwaiting},
        {"p", State::kStopped},     {"pc", State::kAwaiting},  {"pR", State::kRunning},
    };
    for (const auto& [steps, last] : kCases) {
        engine_->ForgetCommands();
        thread_ = std::make_shared<PageThread>(target_, 1);
        // The resume command that stays in flight keeps the thread from sending others.
        for (const char step : std::string("spR") + steps)
            events.at(step)();
        EXPECT_EQ(thread_->CurrentState(), last) << steps;
    }
}

TEST_F(Thread, ResumesAPauseThatAwaitsNothing) {
    thread_->OnPaused();
    EXPECT_THAT(Posted(), ElementsAre("Debugger.resume"));
    thread_->OnPaused();
    EXPECT_THAT(Posted(), ElementsAre()) << "while the command is in flight";
    engine_->Reply("Debugger.resume", Json::object());
    EXPECT_EQ(thread_->CurrentState(), State::kRunning);
}

TEST_F(Thread, ResumesACallInOrderWithItsReply) {
    thread_->CompileUnreachableScript();
    engine_->Reply("Runtime.compileScript", {{"scriptId", "7"}});
    PauseInCall();
    Posted();
    Send();
    EXPECT_THAT(Posted(),
                ElementsAre("Runtime.evaluate", "Debugger.continueToLocation", "Runtime.releaseObjectGroup"));
    ReplyToEvaluation("queued");
    engine_->Reply("Debugger.continueToLocation", Json::object());
    thread_->OnResumed();
    EXPECT_EQ(thread_->CurrentState(), State::kRunning);
    PauseInCall();
    EXPECT_THAT(Posted(), ElementsAre());
    EXPECT_THAT(outcomes_, ElementsAre()) << "the page posts the outcome of a queued message";
}

TEST_F(Thread, ResumesAgainIfAResumeOvertakesItsMessage) {
    PauseInCall();
    Send();
    EXPECT_THAT(Posted(), ElementsAre("Runtime.evaluate", "Debugger.resume"));
    engine_->Reply("Debugger.resume", Json::object());
    thread_->OnResumed();
    thread_->OnPaused();  // the inbox was still empty
    EXPECT_THAT(Posted(), ElementsAre()) << "while the message is in flight";
    ReplyToEvaluation("queued");
    EXPECT_THAT(Posted(), ElementsAre("Debugger.resume"));
}

// The engine refuses to resume a page that runs.
TEST_F(Thread, DeliversAReplyThatArrivesBeforeThePause) {
    thread_->OnCall();
    Send();
    EXPECT_THAT(Posted(), ElementsAre("Runtime.evaluate", "Debugger.resume"));
    engine_->Reply("Debugger.resume", nullptr);
    thread_->OnPaused();
    EXPECT_THAT(Posted(), ElementsAre());
    ReplyToEvaluation("queued");
    EXPECT_THAT(Posted(), ElementsAre("Debugger.resume"));
}

TEST_F(Thread, WakesACallThatBeganAfterTheMessageWasSent) {
    Send();
    EXPECT_THAT(Posted(), ElementsAre("Runtime.evaluate")) << "nothing to resume";
    PauseInCall();
    EXPECT_THAT(Posted(), ElementsAre());
    ReplyToEvaluation("queued");
    EXPECT_THAT(Posted(), ElementsAre("Debugger.resume"));
    EXPECT_EQ(thread_->CurrentState(), State::kStopped) << "the command has ended kQueued";
}

TEST_F(Thread, ReportsTheOutcomeOfAnIdlePageAndOfALostOne) {
    Send();
    ReplyToEvaluation("outcome");
    Send();
    engine_->Reply("Runtime.evaluate", nullptr);
    EXPECT_THAT(outcomes_, ElementsAre("outcome", ""));
}

TEST_F(Thread, SendsNothingAfterItsEnd) {
    thread_->End();
    thread_->OnPaused();
    EXPECT_THAT(Posted(), ElementsAre());
}

}  // namespace
}  // namespace tarvik
