#include "atl/module.h"

#include <functional>

#include "tests/support/test.h"

namespace tarvik {
namespace {

constexpr UINT kProbe = WM_APP + 1;

// Calls a function for each message of the test, and returns its result.
class Filter : public CMessageFilter {
  public:
    explicit Filter(std::function<bool()> function) : function_(std::move(function)) {}

    bool PreTranslateMessage(MSG* message) override { return message->message == kProbe && function_(); }

  private:
    std::function<bool()> function_;
};

TEST(MessageLoop, CallsTheNewestFilterFirstUntilOneHandlesTheMessage) {
    std::string called;
    CMessageLoop loop;
    Filter oldest([&] { return called += "oldest ", false; });
    Filter handler([&] { return called += "handler ", true; });
    Filter middle([&] { return called += "middle ", false; });
    Filter newest([&] {
        loop.RemoveMessageFilter(&newest);
        loop.RemoveMessageFilter(&middle);
        return called += "newest ", false;
    });
    for (Filter* filter : {&oldest, &handler, &middle, &newest})
        loop.AddMessageFilter(filter);
    for (int i = 0; i < 2; ++i)
        PostThreadMessageW(GetCurrentThreadId(), kProbe, 0, 0);
    PostThreadMessageW(GetCurrentThreadId(), WM_QUIT, 3, 0);
    EXPECT_EQ(loop.Run(), 3);
    EXPECT_EQ(called, "newest handler handler ") << "a filter may remove filters";
}

}  // namespace
}  // namespace tarvik
