#include "archive/source_file.h"

#include <array>
#include <filesystem>

#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(SourceFile, ReadsNoMoreThanItsInitialSize) {
    const TempFolder folder;
    const std::wstring path = folder.Write(L"growing", "0123456789");
    SourceFile file(path);
    std::array<char, 7> buffer;
    EXPECT_EQ(file.Read(buffer.data(), buffer.size()), 7u);
    EXPECT_FALSE(file.HasGrown());
    std::filesystem::resize_file(path, 100);
    EXPECT_TRUE(file.HasGrown());
    EXPECT_EQ(file.Read(buffer.data(), buffer.size()), 3u);
    EXPECT_EQ(file.Read(buffer.data(), buffer.size()), 0u);
}

}  // namespace
}  // namespace tarvik
