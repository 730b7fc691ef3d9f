#include "base/shell_delete.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(DeleteFolder, DeletesTheContentsAndNothingElse) {
    const TempFolder tree;
    tree.Write(L"inner\\deep\\c.txt", "123");
    tree.Write(L"inner.txt", "1");
    DeleteFolder(tree / L"inner");
    EXPECT_FALSE(FileExists(tree / L"inner"));
    // A path that is too long is rejected, not truncated to that of another folder.
    DeleteFolder(tree.Path() + L"\\" + std::wstring(kPathLength, L'.'));
    EXPECT_TRUE(FileExists(tree / L"inner.txt"));
}

}  // namespace
}  // namespace tarvik
