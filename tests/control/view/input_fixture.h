#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <utility>

#include "control/view/input_queue.h"
#include "tests/control/view/fake_engine.h"

namespace tarvik {

// A queue to a page that the test plays.
class QueuedInput : public testing::Test {
  protected:
    QueuedInput() { engine->commands.clear(); }

    void Add(InputQueue::Care care, const char* type) { queue.Add(care, "Input", {{"type", type}}); }

    // The page has seen `count` events.
    void Seen(double count) {
        ASSERT_EQ(engine->Next(), "Runtime.evaluate");
        engine->AnswerValue(count);
    }
    // The first input of a document is preceded by a question about its count.
    void Begin(double count = 0.5) { Seen(count); }

    // The parameters of what was sent to a page that sees everything; null if that is nothing.
    Json Sent() {
        if (engine->Next() == "Runtime.evaluate" && !std::exchange(begun_, true)) Begin();
        if (engine->commands.empty()) return nullptr;
        Json parameters = engine->commands.front().parameters;
        engine->Answer();
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
