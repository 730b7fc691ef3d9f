#include "base/status.h"
#include "control/engine/devtools.h"
#include "control/engine/launch.h"
#include "control/engine/transport.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

Json Evaluate(PageTarget& page, const char* expression) {
    return page.Call("Runtime.evaluate",
                     {{"expression", expression}, {"returnByValue", true}})["result"]["value"];
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

// As after a program that was killed. Nothing is started here: there is no such engine.
TEST(Engine, RemovesProfilesThatWereLeft) {
    const std::wstring temp = ReadPath([](wchar_t* buffer) { GetTempPathW(kPathLength, buffer); });
    const std::wstring left = temp + FreshName() + L".profile", used = temp + FreshName() + L".profile",
                       other = temp + L"tarvik-other";
    for (const std::wstring& folder : {left, used, other})
        ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
    UniqueHandle mark(CreateFileW((used + L".used").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    const auto start = [] { EXPECT_THROW(StartThroughPipes(L"C:\\none.exe"), StatusError); };
    start();
    EXPECT_FALSE(FileExists(left));
    EXPECT_TRUE(FileExists(used));
    mark.Reset();
    start();
    EXPECT_FALSE(FileExists(used));
    EXPECT_TRUE(RemoveDirectoryW(other.c_str()));
}

}  // namespace
}  // namespace tarvik
