#include "atl/window.h"

#include "atl/ax_window.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

constexpr UINT kProbe = WM_APP + 1;

// Logs the messages that it gets.
class LoggingWindow : public CWindowImpl {
  public:
    LoggingWindow(std::string name, std::vector<std::string>& log, bool handles = false)
        : name_(std::move(name)), log_(log), handles_(handles) {}

    UINT destroysIn = WM_NULL;  // the message in which the object destroys its window

  protected:
    bool ProcessWindowMessage(UINT message, WPARAM, LPARAM, LRESULT& result) override {
        if (message == destroysIn && Window()) DestroyWindow(Window());
        if (message != kProbe && message != WM_DESTROY) return false;
        log_.push_back(name_ + (message == kProbe ? " probe" : " destroy"));
        result = 7;
        return handles_ && message == kProbe;
    }
    void OnFinalMessage(HWND) override { log_.push_back(name_ + " final"); }

  private:
    std::string name_;
    std::vector<std::string>& log_;
    bool handles_;
};

HWND Create(CWindowImpl& object) {
    return object.Create(L"TarvikTestWindow", kAxWindowClass, nullptr, nullptr, WS_OVERLAPPEDWINDOW, nullptr);
}

class Window : public testing::Test {
  protected:
    Window() { AtlAxWinInit(); }

    std::vector<std::string> log_;
};

TEST_F(Window, CallsTheLastAttachedObjectFirst) {
    LoggingWindow first("first", log_), second("second", log_);
    const HWND window = Create(first);
    ASSERT_TRUE(window);
    ASSERT_TRUE(second.SubclassWindow(window));
    EXPECT_FALSE(second.SubclassWindow(window));
    EXPECT_EQ(SendMessageW(window, kProbe, 0, 0), 0);
    EXPECT_THAT(log_, ElementsAre("second probe", "first probe"));
    {
        LoggingWindow handler("handler", log_, true);
        handler.SubclassWindow(window);
        EXPECT_EQ(SendMessageW(window, kProbe, 0, 0), 7);
        EXPECT_EQ(log_.back(), "handler probe");
    }
    log_.clear();
    DestroyWindow(window);
    EXPECT_THAT(log_, ElementsAre("second destroy", "first destroy", "first final", "second final"))
        << "a destroyed object gets no more messages";
    EXPECT_FALSE(first.Window() || second.Window());
}

TEST_F(Window, IsNullIfDestroyedDuringCreation) {
    LoggingWindow object("object", log_);
    object.destroysIn = WM_CREATE;
    EXPECT_FALSE(Create(object));
    EXPECT_FALSE(object.Window());
    EXPECT_THAT(log_, ElementsAre("object destroy", "object final"));
}

// An object that destroys its window inside a message still has to handle that message.
TEST_F(Window, SendsTheFinalMessageAfterAllNestedMessages) {
    LoggingWindow first("first", log_), second("second", log_);
    const HWND window = Create(first);
    second.SubclassWindow(window);
    first.destroysIn = kProbe;
    SendMessageW(window, kProbe, 0, 0);
    EXPECT_THAT(log_, ElementsAre("second probe", "second destroy", "first destroy", "first probe",
                                  "first final", "second final"));
}

TEST_F(Window, RetainsTheOwnersOfItsObjects) {
    const long before = detail::liveComObjects;
    LoggingWindow object("object", log_), owned("owned", log_);
    const HWND window = Create(object);
    owned.SubclassWindow(window, MakeCom<Recorder>().Get());
    EXPECT_EQ(detail::liveComObjects, before + 1);
    DestroyWindow(window);
    EXPECT_EQ(detail::liveComObjects, before);
}

}  // namespace
}  // namespace tarvik
