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

TEST(MessageLoop, AsksTheNewestFilterFirstUntilOneTakesTheMessage) {
    static int delivered;
    delivered = 0;
    const UniqueWindow window(
        CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
    const WNDPROC count = [](HWND target, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message == kProbe) ++delivered;
        return DefWindowProcW(target, message, wParam, lParam);
    };
    SetWindowLongPtrW(window.Get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(count));

    std::vector<std::string> asked;
    CMessageLoop loop;
    int taken = 0;
    Filter oldest("oldest", asked);
    Filter taker("taker", asked, [&] { return ++taken < 3; });
    Filter middle("middle", asked);
    Filter newest("newest", asked, [&] {
        loop.RemoveMessageFilter(&newest);
        loop.RemoveMessageFilter(&middle);
        return false;
    });
    for (Filter* filter : {&oldest, &taker, &middle, &newest})
        loop.AddMessageFilter(filter);
    for (int i = 0; i < 3; ++i)
        PostMessageW(window.Get(), kProbe, 0, 0);
    PostThreadMessageW(GetCurrentThreadId(), WM_QUIT, 3, 0);
    EXPECT_EQ(loop.Run(), 3);
    EXPECT_THAT(asked, ElementsAre("newest", "taker", "taker", "taker", "oldest"))
        << "filters may go while they are asked";
    EXPECT_EQ(delivered, 1) << "the one that none has taken";
}

}  // namespace
}  // namespace tarvik
