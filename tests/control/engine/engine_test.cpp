#include <gtest/gtest.h>

#include "base/status.h"
#include "control/engine/devtools.h"
#include "tests/support/leak_check.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

Json Evaluate(PageTarget& page, const char* expression) {
    return page.Call("Runtime.evaluate",
                     {{"expression", expression}, {"returnByValue", true}})["result"]["value"];
}

TEST(Engine, ServesSeveralPagesAndStartsAgainAfterItsEnd) {
    for (int start = 0; start < 2; ++start) {
        const Holdings before = Holdings::Now();
        {
            PageTarget first(DevTools::Acquire());
            PageTarget second(DevTools::Acquire());
            EXPECT_NE(first.Id(), second.Id());
            EXPECT_EQ(Evaluate(first, "window.mark = 6 * 7"), 42);
            EXPECT_EQ(Evaluate(second, "typeof window.mark"), "undefined");
        }
        if (start > 0) {
            EXPECT_EQ(Holdings::Now().GrownSince(before), "");
        }
    }
}

TEST(Engine, EndOfTheEngineEndsWhatWaits) {
    const auto devtools = DevTools::Acquire();
    PageTarget page(devtools);
    bool answered = false;
    bool told = false;
    devtools->Listen(page.Session(), [&](std::string_view method, const Json&) {
        if (method == "Inspector.disconnected") told = true;
    });
    page.Post("Runtime.evaluate", {{"expression", "new Promise(() => 0)"}, {"awaitPromise", true}},
              [&](const Json* result) { answered = result == nullptr; });
    devtools->Post("", "Browser.crash", Json::object());
    EXPECT_FALSE(devtools->WaitUntil([] { return false; }, 10000));
    EXPECT_TRUE(answered);
    EXPECT_TRUE(told);
    EXPECT_FALSE(devtools->IsOpen());
    EXPECT_THROW(page.Call("Runtime.evaluate", {{"expression", "1"}}), StatusError);
    PageTarget another(DevTools::Acquire());
    EXPECT_EQ(Evaluate(another, "1 + 1"), 2);
}

TEST(Engine, IsClosedPageByPage) {
    const auto devtools = DevTools::Acquire();
    { PageTarget only(devtools); }
    PageTarget next(devtools);
    EXPECT_EQ(Evaluate(next, "1 + 1"), 2);
}

}  // namespace
}  // namespace tarvik
