#include "control/view/input_queue.h"

#include "tests/control/view/input_fixture.h"

namespace tarvik {
namespace {

using Care = InputQueue::Care;

constexpr char kOtherDocument[] = "Runtime.executionContextsCleared";

// The latest counts. Where the pointer was comes before what it did there, and a press does not wait for the
// answer to a move.
TEST_F(QueuedInput, KeepsMovesInTheirPlace) {
    for (const char* move : {"first", "second", "third"})
        Add(Care::kLatest, move);
    Add(Care::kSeen, "press");
    Add(Care::kLatest, "drag");
    engine->Take("first");  // it has no answer yet
    engine->Take("third");
    Seen(0.5);
    EXPECT_EQ(engine->commands.size(), 1u) << "one after the other";
    engine->Take("press").onReply(nullptr);
    Seen(1.5);
    EXPECT_EQ(engine->Next(), "drag");
}

TEST_F(QueuedInput, HoldsWhatComesWhilePagesStandStill) {
    for (const char* goOn : {"Debugger.resumed", kOtherDocument}) {
        SCOPED_TRACE(goOn);
        Pause();
        Add(Care::kInTurn, "wheel");
        EXPECT_EQ(engine->Next(), "nothing");
        queue.OnEvent(goOn);
        engine->Take("wheel");
    }
    queue.SetParked(true);
    Pause();
    Resume();  // to run a function for native code
    Add(Care::kInTurn, "wheel");
    EXPECT_EQ(engine->Next(), "nothing");
    queue.SetParked(false);
    EXPECT_EQ(engine->Next(), "wheel");
}

TEST_F(QueuedInput, SendsAgainWhatAPageThatStoodStillHasNotSeen) {
    Add(Care::kSeen, "press");
    Add(Care::kSeen, "release");
    Seen(0.5);
    Pause();
    engine->Answer("press");  // the engine confirms what it throws away
    Seen(0.5);
    EXPECT_EQ(engine->Next(), "nothing") << "it still stands";
    Resume();
    engine->Answer("press");
    Seen(2.5);
    EXPECT_EQ(engine->Next(), "release");
}

// What was sent before the page stopped is seen twice by nobody.
TEST_F(QueuedInput, SendsNothingAgainWithoutReason) {
    Add(Care::kSeen, "seen");
    Seen(0.5);
    Pause();  // by what the page does about it
    Resume();
    engine->Answer("seen");
    Seen(1.5);
    ASSERT_EQ(engine->Next(), "nothing");

    Add(Care::kSeen, "meant for no element");
    engine->Answer("meant for no element");
    Seen(1.5);
    ASSERT_EQ(engine->Next(), "nothing");

    Add(Care::kText, "of a key that the page refused");
    Pause();
    Resume();
    engine->Answer("of a key that the page refused");
    Seen(nullptr);
    ASSERT_EQ(engine->Next(), "nothing");

    Add(Care::kSeen, "opens another document");
    Pause();
    engine->Answer("opens another document");
    queue.OnEvent(kOtherDocument);
    Seen(0.25);
    EXPECT_EQ(engine->Next(), "nothing");
}

// The engine answers nothing that it has thrown away with a document.
TEST_F(QueuedInput, DoesNotWaitForWhatWentWithAnotherDocument) {
    Add(Care::kLatest, "move over the old one");
    engine->Take("move over the old one");
    Add(Care::kLatest, "move over the new one");
    EXPECT_EQ(engine->Next(), "nothing");
    queue.OnEvent(kOtherDocument);
    engine->Take("move over the new one");

    Add(Care::kSeen, "press");
    const auto question = engine->Take("Runtime.evaluate");
    queue.OnEvent(kOtherDocument);
    question.onReply(nullptr);
    Seen(0.5);
    engine->Take("press");  // was not sent yet
    Add(Care::kSeen, "release");
    queue.OnEvent(kOtherDocument);
    Seen(0.5);
    EXPECT_EQ(engine->Next(), "release");
}

// A page without the view's end, as one whose script is off.
TEST_F(QueuedInput, DoesWithoutAnswersOfThePage) {
    const Json failed = {{"result", {{"type", "object"}}}, {"exceptionDetails", Json::object()}};
    for (const char* type : {"press", "release"}) {
        Add(Care::kSeen, type);
        engine->Answer("Runtime.evaluate", failed);
        ASSERT_EQ(engine->Next(), type);
        Pause();
        Resume();
        engine->Answer(type);
        engine->Answer("Runtime.evaluate", failed);
    }
    EXPECT_EQ(engine->Next(), "nothing");
}

}  // namespace
}  // namespace tarvik
