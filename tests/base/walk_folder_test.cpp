#include "base/walk_folder.h"

#include "base/shell_delete.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

using testing::UnorderedElementsAre;

// A walk's entries as "path below the folder:size", folders with a slash.
class FolderWalk : public testing::Test {
  protected:
    FolderWalk() {
        tree_.Write(L"b.txt", "12345");
        tree_.Write(L"A.TXT", "1");
        tree_.Write(L"inner\\deep\\c.txt", "123");
        tree_.Write(L"inner.txt\\d", "");
    }

    HRESULT Walk(const wchar_t* pattern, bool recursive) {
        return WalkFolder(tree_.Path(), pattern, recursive,
                          [this](const std::wstring& path, DWORD attributes, ULONGLONG size) {
                              const bool folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
                              seen_.push_back(Narrow(path.substr(tree_.Path().size() + 1)) +
                                              (folder ? "/" : ":") + std::to_string(size));
                              return seen_.size() == stopAfter_ ? E_ABORT : S_FALSE;
                          });
    }

    TempFolder tree_;
    std::vector<std::string> seen_;
    size_t stopAfter_ = 0;
};

TEST_F(FolderWalk, FiltersWholePathsWithTheCaseOfLetters) {
    Walk(L"\\.txt$", true);
    EXPECT_THAT(seen_, UnorderedElementsAre("b.txt:5", "inner\\deep\\c.txt:3", "inner.txt/0"));
    seen_.clear();
    Walk(L"(not an expression", false);
    EXPECT_EQ(seen_.size(), 4u) << "what does not compile filters nothing";
}

TEST_F(FolderWalk, EndsAtOnceOnAbortAlsoFromBelow) {
    stopAfter_ = 1;
    EXPECT_THAT(Walk(L"c\\.txt$|inner", true), HasStatus(E_ABORT));
    EXPECT_EQ(seen_.size(), 1u);
}

TEST_F(FolderWalk, SaysWhyThereWasNothing) {
    EXPECT_THAT(Walk(L"no such name", true), HasStatus(E_FAIL));
    EXPECT_THAT(WalkFolder(tree_ / L"missing", nullptr, false, nullptr),
                HasStatus(HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND)));
}

TEST_F(FolderWalk, DeletedFolderIsGoneWithAllItsContents) {
    DeleteFolder(tree_ / L"inner");
    EXPECT_FALSE(FileExists(tree_ / L"inner"));
    EXPECT_TRUE(FileExists(tree_ / L"inner.txt"));
    // A name that leaves no room for both terminators is refused, not cut to another folder's name.
    DeleteFolder(tree_.Path() + L"\\" + std::wstring(kPathLength, L'.'));
    EXPECT_TRUE(FileExists(tree_ / L"b.txt"));
}

}  // namespace
}  // namespace tarvik
