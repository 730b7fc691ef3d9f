#include "control/view/input_queue.h"

#include "tests/control/view/input_fixture.h"

namespace tarvik {
namespace {

using Care = InputQueue::Care;

TEST_F(QueuedInput, SendsOneAfterTheOther) {
    Add(Care::kDone, "fill the clipboard");
    Add(Care::kSeen, "press");
    Add(Care::kSeen, "release");
    ASSERT_EQ(engine->Next(), "fill the clipboard");
    EXPECT_EQ(engine->commands.size(), 1u);
    engine->Answer();
    Begin();
    ASSERT_EQ(engine->Next(), "press");
    EXPECT_EQ(engine->commands.size(), 1u);
    engine->Answer();
    Seen(1.5);
    EXPECT_EQ(engine->Next(), "release");
}

// The latest counts. Where the pointer was comes before what it did there, and a press does not wait for the
// answer to a move.
TEST_F(QueuedInput, KeepsMovesInTheirPlace) {
    for (const char* move : {"first", "second", "third"})
        Add(Care::kLatest, move);
    Add(Care::kSeen, "press");
    Add(Care::kLatest, "drag");
    ASSERT_EQ(engine->Next(), "first");
    engine->Take();  // it has no answer yet
    ASSERT_EQ(engine->Next(), "third");
    engine->Take();
    Begin();
    ASSERT_EQ(engine->Next(), "press");
    engine->Take().onReply(nullptr);
    Seen(1.5);
    EXPECT_EQ(engine->Next(), "drag");
}

TEST_F(QueuedInput, HoldsWhatComesWhilePagesStandStill) {
    const std::pair<const char*, const char*> kStops[] = {
        {"Debugger.paused", "Debugger.resumed"}, {"Debugger.paused", "Runtime.executionContextsCleared"}};
    for (const auto& [stop, goOn] : kStops) {
        SCOPED_TRACE(goOn);
        queue.OnEvent(stop);
        Add(Care::kInTurn, "wheel");
        EXPECT_EQ(engine->Next(), "nothing");
        queue.OnEvent(goOn);
        ASSERT_EQ(engine->Next(), "wheel");
        engine->Take();
    }
    queue.SetParked(true);
    queue.OnEvent("Debugger.paused");
    queue.OnEvent("Debugger.resumed");  // to run a function for native code
    Add(Care::kInTurn, "wheel");
    EXPECT_EQ(engine->Next(), "nothing");
    queue.SetParked(false);
    EXPECT_EQ(engine->Next(), "wheel");
}

TEST_F(QueuedInput, SendsAgainWhatAPageThatStoodStillHasNotSeen) {
    Add(Care::kSeen, "press");
    Add(Care::kSeen, "release");
    Begin(0.5);
    ASSERT_EQ(engine->Next(), "press");
    queue.OnEvent("Debugger.paused");
    engine->Answer();  // the engine confirms what it throws away
    Seen(0.5);
    EXPECT_EQ(engine->Next(), "nothing") << "it still stands";
    queue.OnEvent("Debugger.resumed");
    ASSERT_EQ(engine->Next(), "press");
    engine->Answer();
    Seen(2.5);
    EXPECT_EQ(engine->Next(), "release");
}

// What was sent before the page stopped is seen twice by nobody.
TEST_F(QueuedInput, SendsNothingAgainWithoutReason) {
    Add(Care::kSeen, "seen");
    Begin(0.5);
    queue.OnEvent("Debugger.paused");  // by what the page does about it
    queue.OnEvent("Debugger.resumed");
    engine->Answer();
    Seen(1.5);
    ASSERT_EQ(engine->Next(), "nothing");

    Add(Care::kSeen, "meant for no element");
    engine->Answer();
    Seen(1.5);
    ASSERT_EQ(engine->Next(), "nothing");

    Add(Care::kText, "of a key that the page refused");
    queue.OnEvent("Debugger.paused");
    queue.OnEvent("Debugger.resumed");
    engine->Answer();
    engine->AnswerValue(nullptr);
    ASSERT_EQ(engine->Next(), "nothing");

    Add(Care::kSeen, "opens another document");
    queue.OnEvent("Debugger.paused");
    engine->Answer();
    queue.OnEvent("Runtime.executionContextsCleared");
    Seen(0.25);
    EXPECT_EQ(engine->Next(), "nothing");
}

// The engine answers nothing that it has thrown away with a document.
TEST_F(QueuedInput, DoesNotWaitForWhatWentWithAnotherDocument) {
    Add(Care::kLatest, "move over the old one");
    engine->Take();
    Add(Care::kLatest, "move over the new one");
    EXPECT_EQ(engine->Next(), "nothing");
    queue.OnEvent("Runtime.executionContextsCleared");
    ASSERT_EQ(engine->Next(), "move over the new one");
    engine->Take();

    Add(Care::kSeen, "press");
    const auto question = engine->Take();
    ASSERT_EQ(question.method, "Runtime.evaluate");
    queue.OnEvent("Runtime.executionContextsCleared");
    question.onReply(nullptr);
    Begin();
    EXPECT_EQ(engine->Next(), "press") << "was not sent yet";
    engine->Take();
    Add(Care::kSeen, "release");
    queue.OnEvent("Runtime.executionContextsCleared");
    Begin();
    EXPECT_EQ(engine->Next(), "release");
}

// A page without the view's end, as one whose script is off.
TEST_F(QueuedInput, DoesWithoutAnswersOfThePage) {
    const Json failed = {{"result", {{"type", "object"}}}, {"exceptionDetails", Json::object()}};
    for (const char* type : {"press", "release"}) {
        Add(Care::kSeen, type);
        engine->Answer(failed);
        ASSERT_EQ(engine->Next(), type);
        queue.OnEvent("Debugger.paused");
        queue.OnEvent("Debugger.resumed");
        engine->Answer();
        engine->Answer(failed);
    }
    EXPECT_EQ(engine->Next(), "nothing");
}

}  // namespace
}  // namespace tarvik
