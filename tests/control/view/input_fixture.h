#pragma once

#include <gtest/gtest.h>

#include <memory>

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

    const std::shared_ptr<FakeEngine> engine = std::make_shared<FakeEngine>();
    PageTarget target{engine};
    PageSide side{target};
    InputQueue queue{target, side};
};

}  // namespace tarvik
