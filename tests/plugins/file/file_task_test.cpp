#include "plugins/file/file_task.h"

#include "tarvik/text.h"
#include "tests/plugins/file/file_fixture.h"

namespace tarvik {
namespace {

class FileTasks : public File {
  protected:
    FileTasks() {
        folder_.Write(L"tree\\a.txt", "aaa");
        folder_.Write(L"tree\\inner\\deep\\b.txt", "b");
        CreateDirectoryW((folder_ / L"tree\\an empty one").c_str(), nullptr);
    }
    auto Tree(const wchar_t* name = L"tree") const { return ReadTree(folder_ / name); }
};

TEST_F(FileTasks, CopiesATree) {
    const auto before = Tree();
    EXPECT_EQ(Run(L"copyAsync", L"tree", L"copied").text, kSuccess);
    EXPECT_EQ(Tree(L"copied"), before);
    EXPECT_EQ(Run(L"copyAsync", (folder_ / L"tree\\").c_str(), folder_ / L"again\\").text, kSuccess);
    EXPECT_EQ(Tree(L"again"), before);
    EXPECT_EQ(Run(L"copyAsync", L"tree", L"tree\\inner\\copy").text, kSuccess);
    EXPECT_EQ(Tree(L"tree\\inner\\copy"), before) << "into itself";
}

// A single file or folder, by copy and by move to another root.
TEST_F(FileTasks, ReportsTheStatus) {
    const struct {
        const wchar_t* what;
        const wchar_t* src;
        const wchar_t* dest;
        bool replace;
        HRESULT copied;
        HRESULT moved;
    } rows[] = {
        {L"missing", L"missing", L"x", false, SystemError(2), SystemError(2)},
        {L"a wildcard", L"f*.txt", L"x", false, SystemError(2), SystemError(2)},
        {L"a new name", L"file.txt", L"new.txt", false, S_OK, S_OK},
        {L"no such folder", L"file.txt", L"no\\folder\\x", false, SystemError(ERROR_PATH_NOT_FOUND), S_OK},
        {L"a file exists", L"file.txt", L"there.txt", false, SystemError(ERROR_FILE_EXISTS),
         SystemError(ERROR_ALREADY_EXISTS)},
        {L"a file is replaced", L"file.txt", L"there.txt", true, S_OK, S_OK},
        {L"a file instead of a folder", L"folder", L"there.txt", true, E_FAIL,
         SystemError(ERROR_PATH_NOT_FOUND)},
        {L"a folder exists", L"folder", L"other", false, S_OK, S_OK},
        {L"an empty folder", L"empty", L"no\\folder\\x", false, SystemError(ERROR_PATH_NOT_FOUND), S_OK},
        {L"in use", L"locked.txt", L"x", false, SystemError(ERROR_SHARING_VIOLATION),
         SystemError(ERROR_SHARING_VIOLATION)},
        {L"a read-only source", L"read-only.txt", L"x", false, S_OK, S_OK},
    };
    for (const auto& row : rows) {
        for (const bool copy : {true, false}) {
            SCOPED_TRACE(Narrow(row.what) + (copy ? ", copied" : ", moved"));
            const TempFolder place;
            const std::wstring source = place.Write(L"file.txt", "new");
            const std::wstring locked = place.Write(L"locked.txt", "");
            const std::wstring readOnly = place.Write(L"read-only.txt", "old");
            place.Write(L"there.txt", "old");
            place.Write(L"folder\\inner.txt", "new");
            CreateDirectoryW((place / L"empty").c_str(), nullptr);
            CreateDirectoryW((place / L"other").c_str(), nullptr);
            SetFileAttributesW(readOnly.c_str(), FILE_ATTRIBUTE_READONLY);
            const UniqueHandle lock = HoldFile(locked);

            const HRESULT status = copy ? row.copied : row.moved;
            const Completion completion = Run(copy ? L"copyAsync" : L"moveAsync", place / row.src,
                                              OtherRoot(place / row.dest), row.replace);
            EXPECT_EQ(completion.result, "BOOL true");
            EXPECT_EQ(completion.text, status == S_OK ? kSuccess : FailText(status));
            if (status == S_OK) {
                EXPECT_EQ(FileExists(place / row.src), copy);
                EXPECT_TRUE(FileExists(place / row.dest));
            } else {
                EXPECT_EQ(ReadFileBytes(source), "new");
            }
            for (const std::wstring& file : {readOnly, place / L"x"})
                SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
        }
    }
}

TEST_F(FileTasks, MovesATree) {
    const auto before = Tree();
    EXPECT_EQ(Run(L"moveAsync", L"tree", OtherRoot(folder_ / L"far\\away")).text, kSuccess);
    EXPECT_EQ(Tree(L"far\\away"), before);
    EXPECT_FALSE(FileExists(folder_ / L"tree"));
    const Completion renamed = Run(L"moveAsync", L"far\\away", L"renamed");
    EXPECT_EQ(renamed.text, kSuccess);
    EXPECT_THAT(renamed.progress, IsEmpty()) << "only a name changes within a root";
    EXPECT_NE(Run(L"moveAsync", L"renamed", L"renamed\\inner\\x").text, kSuccess);
    EXPECT_EQ(Tree(L"renamed"), before) << "into itself";
}

TEST_F(FileTasks, ReplacesAFileWithinARoot) {
    folder_.Write(L"new.txt", "new");
    folder_.Write(L"old.txt", "old");
    EXPECT_EQ(Run(L"moveAsync", L"new.txt", L"old.txt").text, FailText(SystemError(ERROR_ALREADY_EXISTS)));
    EXPECT_EQ(Run(L"moveAsync", L"new.txt", L"old.txt", true).text, kSuccess);
    EXPECT_EQ(ReadFileBytes(folder_ / L"old.txt"), "new");
}

TEST_F(FileTasks, DoesNotUndoAFailedMove) {
    const std::wstring locked = folder_.Write(L"tree\\z.txt", "z");
    const UniqueHandle lock = HoldFile(locked);
    EXPECT_EQ(Run(L"moveAsync", L"tree", OtherRoot(folder_ / L"moved")).text,
              FailText(SystemError(ERROR_SHARING_VIOLATION)));
    EXPECT_EQ(ReadFileBytes(folder_ / L"moved\\a.txt"), "aaa");
    EXPECT_FALSE(FileExists(folder_ / L"tree\\a.txt"));
    EXPECT_TRUE(FileExists(locked));
}

TEST_F(FileTasks, MovesNothingThroughALink) {
    folder_.Write(L"elsewhere\\kept.txt", "a");
    const FolderLink link(folder_ / L"tree\\link", folder_ / L"elsewhere");
    if (!link) GTEST_SKIP() << "no links to folders here";
    for (const wchar_t* source : {L"tree", L"tree\\link"}) {
        EXPECT_EQ(Run(L"moveAsync", source, OtherRoot(folder_ / L"moved")).text,
                  FailText(SystemError(ERROR_NOT_SUPPORTED)));
        EXPECT_FALSE(FileExists(folder_ / L"moved"));
    }
    EXPECT_EQ(Run(L"copyAsync", L"tree", L"copied").text, kSuccess);
    EXPECT_EQ(ReadFileBytes(folder_ / L"copied\\link\\kept.txt"), "a");
}

}  // namespace
}  // namespace tarvik
