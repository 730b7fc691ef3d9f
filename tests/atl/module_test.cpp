#include "atl/module.h"

#include <functional>

#include "tests/support/test.h"

namespace tarvik {
namespace {

constexpr UINT kProbe = WM_APP + 1;

// Notes the messages of the test that it is shown, and does something about it.
class Filter : public CMessageFilter {
  public:
    explicit Filter(std::function<bool()> answer) : answer_(std::move(answer)) {}

    bool PreTranslateMessage(MSG* message) override { return message->message == kProbe && answer_(); }

  private:
    std::function<bool()> answer_;
};

TEST(MessageLoop, AsksTheNewestFilterFirstUntilOneTakesTheMessage) {
    std::string asked;
    CMessageLoop loop;
    Filter oldest([&] { return asked += "oldest ", false; });
    Filter taker([&] { return asked += "taker ", true; });
    Filter middle([&] { return asked += "middle ", false; });
    Filter newest([&] {
        loop.RemoveMessageFilter(&newest);
        loop.RemoveMessageFilter(&middle);
        return asked += "newest ", false;
    });
    for (Filter* filter : {&oldest, &taker, &middle, &newest})
        loop.AddMessageFilter(filter);
    for (int i = 0; i < 2; ++i)
        PostThreadMessageW(GetCurrentThreadId(), kProbe, 0, 0);
    PostThreadMessageW(GetCurrentThreadId(), WM_QUIT, 3, 0);
    EXPECT_EQ(loop.Run(), 3);
    EXPECT_EQ(asked, "newest taker taker ") << "filters may go while they are asked";
}

}  // namespace
}  // namespace tarvik
