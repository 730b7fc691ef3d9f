#include "app/log/log.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(Log, WritesEnabledLevelsAndTheTime) {
    DebugChannel channel;
    Log({kLogError, nullptr}, kLogTrace, 7, "CSome::Trace", nullptr);
    EXPECT_THAT(channel.Texts(), IsEmpty());
    Log({kLogError, nullptr}, kLogError, 7, "CSome::Fault", nullptr);
    Log({kLogTrace | kLogError, nullptr}, kLogTrace, 12345, "CSome::Trace", L"%s is %d", L"this", 5);
    Log({kLogError | kLogTimeStamp, nullptr}, kLogError, 42, "CSome::Fault", nullptr);
    EXPECT_THAT(channel.Texts(),
                ElementsAre("(0007) CSome::Fault\n", "(12345) CSome::Trace this is 5\n",
                            MatchesRegex("\\[\\d\\d\\d\\d-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\] "
                                         "\\(0042\\) CSome::Fault\n")));
}

TEST(Log, FormatsNothingIfDisabledAndIgnoresWriteErrors) {
    DebugChannel channel;
    const auto* nowhere = reinterpret_cast<const wchar_t*>(1);
    Log({0, nullptr}, kLogError, 1, "label", L"%s", nowhere);
    Log({kLogTimeStamp | kLogToFile, nullptr}, kLogTrace | kLogError, 1, "label", L"%s", nowhere);
    Log({kLogError | kLogToFile, INVALID_HANDLE_VALUE}, kLogError, 1, "label", L"x");
    EXPECT_THAT(channel.Texts(), IsEmpty());
}

TEST(Log, WritesWideTextOfAnyLengthToAFile) {
    const TempFolder folder;
    const std::wstring name = folder / L"log";
    const std::wstring text(5'000, L'\x416');
    {
        const UniqueHandle file(
            CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        Log({kLogError | kLogToFile, file.Get()}, kLogError, 1, "L", L"%s", text.c_str());
        Log({kLogError | kLogToFile, file.Get()}, kLogError, 2, "L", nullptr);
    }
    const std::string bytes = ReadFileBytes(name);
    const std::wstring written(reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / 2);
    EXPECT_EQ(written, L"(0001) L " + text + L"\n(0002) L\n");
}

}  // namespace
}  // namespace tarvik
