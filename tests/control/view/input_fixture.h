#pragma once

#include <deque>

#include "control/view/input_queue.h"
#include "tests/support/test.h"

namespace tarvik {

// An engine that does nothing of its own: a test looks at the commands, and answers them when it likes.
class FakeEngine : public DevTools {
  public:
    struct Command {
        std::string method;
        Json parameters;
        ReplyHandler onReply;
    };
    // Not answered or taken yet, in order.
    std::deque<Command> commands;

    // The front command as "METHOD" or, for input, "TYPE"; "nothing" if there is none.
    std::string Next() const {
        if (commands.empty()) return "nothing";
        return commands.front().parameters.value("type", commands.front().method);
    }
    // Takes the front command, which must be this one, without an answer.
    Command Take(std::string_view expected) {
        EXPECT_EQ(Next(), expected);
        if (Next() != expected) return {};
        Command command = std::move(commands.front());
        commands.pop_front();
        return command;
    }
    // Takes it with one.
    void Answer(std::string_view expected, const Json& result = Json::object()) {
        const Command command = Take(expected);
        if (command.onReply) command.onReply(&result);
    }

    void Post(std::string_view, std::string_view method, Json params, ReplyHandler onReply) override {
        commands.push_back({std::string(method), std::move(params), std::move(onReply)});
    }
    void Together(const std::function<void()>& posts) override { posts(); }
    Json Call(std::string_view, std::string_view, Json, DWORD) override { return {{"sessionId", "session"}}; }
    void Listen(std::string_view, EventHandler) override {}
    void ListenToFrames(std::string_view, FrameHandler) override {}
    bool WaitUntil(const std::function<bool()>& condition, DWORD) override { return condition(); }
    bool IsOpen() const override { return true; }
    bool IsWaiting() const override { return false; }
    std::string OpenPage() override { return "target"; }
    void ClosePage(const std::string&) override {}
};

// A queue to a page that the test plays.
class QueuedInput : public testing::Test {
  protected:
    QueuedInput() { engine->commands.clear(); }

    void Add(InputQueue::Care care, const char* type) { queue.Add(care, "Input", {{"type", type}}); }
    void Pause() { queue.OnEvent("Debugger.paused"); }
    void Resume() { queue.OnEvent("Debugger.resumed"); }

    // The page has seen `count` events; the first input of a document is preceded by that question.
    void Seen(const Json& count) { engine->Answer("Runtime.evaluate", {{"result", {{"value", count}}}}); }

    // The parameters of what was sent to a page that sees everything; null if that is nothing.
    Json Sent() {
        if (engine->Next() == "Runtime.evaluate" && !std::exchange(begun_, true)) Seen(0.5);
        if (engine->commands.empty()) return nullptr;
        const Json parameters = engine->commands.front().parameters;
        engine->Answer(engine->Next());
        if (engine->Next() == "Runtime.evaluate") Seen(++count_);
        return parameters;
    }

    const std::shared_ptr<FakeEngine> engine = std::make_shared<FakeEngine>();
    PageTarget target{engine};
    PageSide side{target};
    InputQueue queue{target, side};

  private:
    double count_ = 1;
    bool begun_ = false;
};

}  // namespace tarvik
