#include "archive/archive_finder.h"

#include "tests/plugins/zip/archive_writer.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

const std::string kFirst = WriteArchive({{"first.txt", "1"}});
const std::string kSecond = WriteArchive({{"second.txt", "22"}});
const std::string kStub(1000, 'M');

// The archive as text, or "none".
std::string Find(const std::string& file, std::uint32_t fromEnd = 0) {
    const auto found = FindArchive(BytesOf(file), fromEnd);
    return found ? std::string(found->begin(), found->end()) : "none";
}

TEST(ArchiveFinder, FindsAnArchiveAttachedToAProgram) {
    EXPECT_EQ(Find(kStub + kFirst + "trailing bytes"), kFirst);
    EXPECT_EQ(Find(kFirst), kFirst);
    // Each step of the walk reaches the start of the file, and the next one starts at its end again.
    EXPECT_EQ(Find(kFirst, 4'000'000'000), kFirst);
}

TEST(ArchiveFinder, CountsFromTheEnd) {
    const std::string twice = kStub + kFirst + kSecond;
    EXPECT_EQ(Find(twice, 0), kSecond);
    EXPECT_EQ(Find(twice, 1), kFirst);
    EXPECT_EQ(Find(twice, 2), "none");
    // Without a program in front, the first one starts where the file does, which means the whole file.
    EXPECT_EQ(Find(kFirst + kSecond, 0), kSecond);
    EXPECT_EQ(Find(kFirst + kSecond, 1), kFirst + kSecond);
    EXPECT_EQ(Find(kFirst + kSecond, 2), kSecond);
    EXPECT_EQ(Find(kFirst + kSecond, 3'999'999'999), kFirst + kSecond);
}

TEST(ArchiveFinder, SearchesTheLast64KiBOnly) {
    constexpr size_t kLongestComment = 65'535 - 22;
    const std::string reachable = WriteArchive({}, {.comment = std::string(kLongestComment, 'c')});
    const std::string tooFar = WriteArchive({}, {.comment = std::string(kLongestComment + 1, 'c')});
    EXPECT_EQ(Find(reachable), reachable);
    EXPECT_EQ(Find(tooFar), "none");
    for (size_t length = 0; length < 22; ++length)
        EXPECT_EQ(Find(kFirst.substr(kFirst.size() - 22, length)), "none") << length;
}

TEST(ArchiveFinder, RefusesFieldsThatPointOutsideTheFile) {
    constexpr std::uint32_t kMost = 0xFFFFFFFF;
    // In the last pair, the sum of both is 0 in 32 bits.
    for (const auto& [size, offset] :
         {std::pair(1001u, 0u), {0u, 1001u}, {kMost, 0u}, {0u, kMost}, {kMost, 1u}}) {
        const auto end = WriteArchive({}, {.directoryOffset = offset, .directorySize = size});
        EXPECT_EQ(Find(kStub + end), "none") << size << ", " << offset;
    }
}

}  // namespace
}  // namespace tarvik
