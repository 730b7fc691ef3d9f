#include "base/shell_delete.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(DeletedFolder, IsGoneWithAllItsContentsAndNothingElse) {
    const TempFolder tree;
    tree.Write(L"inner\\deep\\c.txt", "123");
    tree.Write(L"inner.txt", "1");
    DeleteFolder(tree / L"inner");
    EXPECT_FALSE(FileExists(tree / L"inner"));
    // A name that leaves no room for both terminators is refused, not cut to another folder's name.
    DeleteFolder(tree.Path() + L"\\" + std::wstring(kPathLength, L'.'));
    EXPECT_TRUE(FileExists(tree / L"inner.txt"));
}

}  // namespace
}  // namespace tarvik
