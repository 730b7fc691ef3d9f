#include "base/path.h"

#include "tarvik/text.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(Path, ParentFolderKeepsTheSeparatorOfARootOnly) {
    EXPECT_EQ(ParentFolder(L"C:\\a\\b/c"), L"C:\\a\\b");
    EXPECT_EQ(ParentFolder(L"C:\\a\\b/c", L"\\"), L"C:\\a");
    EXPECT_EQ(ParentFolder(L"C:\\a"), L"C:\\");
    EXPECT_EQ(ParentFolder(L"\\a"), L"\\");
    for (const wchar_t* const path : {L"C:\\", L"\\", L"a", L""})
        EXPECT_EQ(ParentFolder(path), L"") << Narrow(path);
}

}  // namespace
}  // namespace tarvik
