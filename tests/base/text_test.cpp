#include "base/text.h"

#include <windows.h>
#include <shellapi.h>

#include <memory>

#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(QuoteArgument, RoundTripsThroughTheCommandLine) {
    const wchar_t* const kArguments[] = {
        L"", L"plain", L"with blanks", L"C:\\folder\\", L"a\\\"b", L"\"", L"\\\\\"\\\\ \\", L"it's $x",
    };
    std::wstring line = L"program";
    for (const wchar_t* argument : kArguments)
        line += L" " + QuoteArgument(argument);
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> read(CommandLineToArgvW(line.c_str(), &count),
                                                             LocalFree);
    ASSERT_EQ(count, 1 + static_cast<int>(std::size(kArguments)));
    for (int i = 1; i < count; ++i)
        EXPECT_STREQ(read.get()[i], kArguments[i - 1]);
}

}  // namespace
}  // namespace tarvik
