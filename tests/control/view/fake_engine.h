#pragma once

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "control/engine/devtools.h"

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
    // Answers the front command.
    void Answer(const Json& result = Json::object()) {
        const Command command = std::move(commands.front());
        commands.pop_front();
        if (command.onReply) command.onReply(&result);
    }
    // Answers the front command, an evaluation, with a value.
    void AnswerValue(const Json& value) { Answer({{"result", {{"value", value}}}}); }
    // Takes it without an answer.
    Command Take() {
        Command command = std::move(commands.front());
        commands.pop_front();
        return command;
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
    std::string OpenPage() override { return "target"; }
    void ClosePage(const std::string&) override {}
};

}  // namespace tarvik
