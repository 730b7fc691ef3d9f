#include "atl/module.h"

#include <functional>

#include "tests/support/test.h"

namespace tarvik {
namespace {

constexpr UINT kProbe = WM_APP + 1;

// Notes the messages of the test that it is shown.
class Filter : public CMessageFilter {
  public:
    using Answer = std::function<bool()>;
    Filter(
        std::string name, std::vector<std::string>& asked, Answer answer = [] { return false; })
        : name_(std::move(name)), asked_(asked), answer_(std::move(answer)) {}

    bool PreTranslateMessage(MSG* message) override {
        if (message->message != kProbe) return false;
        asked_.push_back(name_);
        return answer_();
    }

  private:
    std::string name_;
    std::vector<std::string>& asked_;
    Answer answer_;
};

class MessageLoop : public testing::Test {
  protected:
    int RunWithProbes(int count) {
        for (int i = 0; i < count; ++i)
            PostThreadMessageW(GetCurrentThreadId(), kProbe, 0, 0);
        PostThreadMessageW(GetCurrentThreadId(), WM_QUIT, 3, 0);
        return loop_.Run();
    }

    std::vector<std::string> asked_;
    CMessageLoop loop_;
};

TEST_F(MessageLoop, AsksTheNewestFilterFirstUntilOneTakesTheMessage) {
    Filter oldest("oldest", asked_);
    Filter taker("taker", asked_, [] { return true; });
    Filter middle("middle", asked_);
    Filter newest("newest", asked_, [&] {
        loop_.RemoveMessageFilter(&newest);
        loop_.RemoveMessageFilter(&middle);
        return false;
    });
    for (Filter* filter : {&oldest, &taker, &middle, &newest})
        loop_.AddMessageFilter(filter);
    EXPECT_EQ(RunWithProbes(2), 3);
    EXPECT_THAT(asked_, ElementsAre("newest", "taker", "taker")) << "filters may go while they are asked";
}

TEST_F(MessageLoop, KeepsTakenMessagesFromTheWindow) {
    static int delivered;
    delivered = 0;
    const HWND window =
        CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ASSERT_TRUE(window);
    const WNDPROC count = [](HWND target, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message == kProbe) ++delivered;
        return DefWindowProcW(target, message, wParam, lParam);
    };
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(count));
    bool take = true;
    Filter filter("filter", asked_, [&] { return std::exchange(take, false); });
    loop_.AddMessageFilter(&filter);
    PostMessageW(window, kProbe, 0, 0);
    PostMessageW(window, kProbe, 0, 0);
    RunWithProbes(0);
    EXPECT_EQ(asked_.size(), 2u);
    EXPECT_EQ(delivered, 1) << "the second one only";
    DestroyWindow(window);
}

}  // namespace
}  // namespace tarvik
