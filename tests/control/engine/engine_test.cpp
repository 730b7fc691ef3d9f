#include "base/status.h"
#include "control/engine/launch.h"
#include "control/engine/transport.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

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
