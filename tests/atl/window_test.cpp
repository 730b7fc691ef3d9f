#include "atl/window.h"

#include "atl/ax_window.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

constexpr UINT kProbe = WM_APP + 1;

// Notes the messages it is asked for, and that its window is gone.
class Noting : public CWindowImpl {
  public:
    Noting(std::string name, std::vector<std::string>& notes, bool takes = false)
        : name_(std::move(name)), notes_(notes), takes_(takes) {}

    UINT endsIn = WM_NULL;  // the message in which the object destroys its window

  protected:
    bool ProcessWindowMessage(UINT message, WPARAM, LPARAM, LRESULT& result) override {
        if (message == endsIn && Window()) DestroyWindow(Window());
        if (message != kProbe && message != WM_DESTROY) return false;
        notes_.push_back(name_ + (message == kProbe ? " probe" : " destroy"));
        result = 7;
        return takes_ && message == kProbe;
    }
    void OnFinalMessage(HWND) override { notes_.push_back(name_ + " final"); }

  private:
    std::string name_;
    std::vector<std::string>& notes_;
    bool takes_;
};

HWND Make(CWindowImpl& object) {
    return object.Create(L"TarvikTestWindow", kAxWindowClass, nullptr, nullptr, WS_OVERLAPPEDWINDOW, nullptr);
}

class Windows : public testing::Test {
  protected:
    Windows() { AtlAxWinInit(); }

    std::vector<std::string> notes_;
};

TEST_F(Windows, AskTheObjectAttachedLastFirst) {
    Noting first("first", notes_), second("second", notes_);
    const HWND window = Make(first);
    ASSERT_TRUE(window);
    ASSERT_TRUE(second.SubclassWindow(window));
    EXPECT_FALSE(second.SubclassWindow(window));
    EXPECT_EQ(SendMessageW(window, kProbe, 0, 0), 0);
    EXPECT_THAT(notes_, ElementsAre("second probe", "first probe"));
    {
        Noting taker("taker", notes_, true);
        taker.SubclassWindow(window);
        EXPECT_EQ(SendMessageW(window, kProbe, 0, 0), 7);
        EXPECT_EQ(notes_.back(), "taker probe");
    }
    notes_.clear();
    DestroyWindow(window);
    EXPECT_THAT(notes_, ElementsAre("second destroy", "first destroy", "first final", "second final"))
        << "an object that ended has left its window";
    EXPECT_FALSE(first.Window() || second.Window());
}

TEST_F(Windows, AreNullWhenTheyWereDestroyedInTheirCreation) {
    Noting object("object", notes_);
    object.endsIn = WM_CREATE;
    EXPECT_FALSE(Make(object));
    EXPECT_FALSE(object.Window());
    EXPECT_THAT(notes_, ElementsAre("object destroy", "object final"));
}

// An object whose window ends inside a message still has that message to handle.
TEST_F(Windows, TellTheirEndWhenNoMessageIsLeftInside) {
    Noting first("first", notes_), second("second", notes_);
    const HWND window = Make(first);
    second.SubclassWindow(window);
    first.endsIn = kProbe;
    SendMessageW(window, kProbe, 0, 0);
    EXPECT_THAT(notes_, ElementsAre("second probe", "second destroy", "first destroy", "first probe",
                                    "first final", "second final"));
}

TEST_F(Windows, KeepTheOwnersOfTheirObjectsToTheEnd) {
    const long before = liveComObjects;
    Noting object("object", notes_), owned("owned", notes_);
    const HWND window = Make(object);
    owned.SubclassWindow(window, MakeCom<Recorder>().Get());
    EXPECT_EQ(liveComObjects, before + 1);
    DestroyWindow(window);
    EXPECT_EQ(liveComObjects, before);
}

}  // namespace
}  // namespace tarvik
