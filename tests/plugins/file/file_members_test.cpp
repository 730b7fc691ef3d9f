#include "tarvik/text.h"
#include "tests/plugins/file/file_fixture.h"

namespace tarvik {
namespace {

TEST_F(File, TakesPathsOfEveryForm) {
    std::wstring path = folder_.Write(L"sub\\\u00e4 b.txt", "12345");
    std::wstring slashes = path;
    std::ranges::replace(slashes, L'\\', L'/');
    std::wstring url = L"file:///" + slashes;
    url.replace(url.find(L' '), 1, L"%20");
    for (const std::wstring& form :
         {path, slashes, url, std::wstring(L"sub\\\u00e4 b.txt"), std::wstring(L"sub/../sub/\u00e4 b.txt")}) {
        SCOPED_TRACE(Narrow(form));
        EXPECT_EQ(Ask(L"isFileExist", form.c_str()), "BOOL true");
        EXPECT_EQ(Ask(L"getSize", form.c_str()), "I8 5");
        EXPECT_EQ(Ask(L"isDir", form.c_str()), "BOOL false");
    }
}

TEST_F(File, AnswersForFoldersAndForNothing) {
    const std::wstring locked = folder_.Write(L"sub\\locked.txt", "1");
    const UniqueHandle lock = HoldFile(locked);
    EXPECT_EQ(Ask(L"getSize", L"sub\\locked.txt"), "EMPTY");
    EXPECT_EQ(Ask(L"getSize", L"sub"), "EMPTY");
    EXPECT_EQ(Ask(L"isFileExist", L"sub"), "BOOL true");
    EXPECT_EQ(Ask(L"isDir", L"sub"), "BOOL true");
    EXPECT_EQ(Ask(L"mkDir", L"new"), "BOOL true");
    EXPECT_EQ(Ask(L"mkDir", L"new"), "BOOL false") << "there already";
    EXPECT_EQ(Ask(L"mkDir", L"more\\levels"), "BOOL false");
    // Intended: the folder is found in its parent, so it is not empty.
    EXPECT_EQ(Ask(L"isDirEmpty", L"new"), "BOOL false");
    EXPECT_EQ(Ask(L"isDirEmpty", L"sub"), "BOOL false");
    EXPECT_EQ(Ask(L"isDirEmpty", (folder_ / L"new\\.").c_str()), "BOOL true");
    EXPECT_EQ(Ask(L"isDirEmpty", locked.c_str()), "BOOL false");
    for (const wchar_t* nothing : {L"", L"missing", L"sub\\*", L"http://host/page", L"\\\\?\\"}) {
        SCOPED_TRACE(Narrow(nothing));
        for (const wchar_t* member : {L"isFileExist", L"isDir", L"isDirEmpty", L"mkDir"}) {
            if (wcscmp(nothing, L"missing") == 0 && wcscmp(member, L"mkDir") == 0) continue;
            EXPECT_EQ(Ask(member, nothing), "BOOL false") << Narrow(member);
        }
        EXPECT_EQ(Ask(L"getSize", nothing), "EMPTY");
    }
}

TEST_F(File, CopiesAndMovesByTheShell) {
    folder_.Write(L"tree\\inner\\a.txt", "a");
    EXPECT_EQ(Ask(L"copy", L"tree", L"copied"), "BOOL true");
    EXPECT_EQ(ReadTree(folder_ / L"copied"), ReadTree(folder_ / L"tree"));
    EXPECT_EQ(Ask(L"move", L"tree\\inner\\a.txt", L"copied\\b.txt"), "BOOL true");
    EXPECT_EQ(ReadFileBytes(folder_ / L"copied\\b.txt"), "a");
    EXPECT_FALSE(FileExists(folder_ / L"tree\\inner\\a.txt"));
    EXPECT_EQ(Ask(L"copy", L"missing", L"x"), "BOOL false");
    for (const wchar_t* member : {L"copy", L"move"}) {
        EXPECT_EQ(Ask(member, L"", L"x"), "BOOL false");
        EXPECT_EQ(Ask(member, L"copied", L""), "BOOL false");
    }
}

TEST_F(File, SurvivesLongPaths) {
    for (const size_t length : {259, 260, 5000}) {
        SCOPED_TRACE(length);
        const std::wstring path = folder_ / std::wstring(length - folder_.Path().size() - 1, L'n');
        for (const std::wstring& form : {path, std::wstring(length, L'n')}) {
            EXPECT_EQ(Ask(L"isFileExist", form.c_str()), "BOOL false");
            EXPECT_EQ(Ask(L"deleteFile", form.c_str()), "BOOL true");
            EXPECT_EQ(Ask(L"copy", form.c_str(), L"x"), "BOOL false");
        }
        const std::wstring file = folder_.Write(L"short", "1");
        EXPECT_EQ(Ask(L"move", file.c_str(), path.c_str()), length < 260 ? "BOOL true" : "BOOL false");
        EXPECT_EQ(Ask(L"getSize", path.c_str()), length < 260 ? "I8 1" : "EMPTY");
    }
}

}  // namespace
}  // namespace tarvik
