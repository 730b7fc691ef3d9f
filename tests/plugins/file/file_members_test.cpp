#include "tarvik/text.h"
#include "tests/plugins/file/file_fixture.h"

namespace tarvik {
namespace {

TEST_F(File, AcceptsPathsInEveryForm) {
    std::wstring path = folder_.Write(L"sub\\\u00e4 b.txt", "12345");
    std::wstring slashes = path;
    std::ranges::replace(slashes, L'\\', L'/');
    std::wstring url = L"file:///" + slashes;
    url.replace(url.find(L' '), 1, L"%20");
    for (const std::wstring& form :
         {path, slashes, url, std::wstring(L"sub\\\u00e4 b.txt"), std::wstring(L"sub/../sub/\u00e4 b.txt")}) {
        EXPECT_EQ(Call(L"getSize", form.c_str()), "I8 5") << Narrow(form);
        EXPECT_EQ(Call(L"isDir", form.c_str()), "BOOL false") << Narrow(form);
    }
}

TEST_F(File, QueriesFoldersAndMissingPaths) {
    const UniqueHandle lock = HoldFile(folder_.Write(L"sub\\locked.txt", "1"));
    EXPECT_EQ(Call(L"getSize", L"sub\\locked.txt"), "EMPTY");
    EXPECT_EQ(Call(L"getSize", L"sub"), "EMPTY");
    EXPECT_EQ(Call(L"isFileExist", L"sub"), "BOOL true");
    EXPECT_EQ(Call(L"mkDir", L"new"), "BOOL true");
    EXPECT_EQ(Call(L"mkDir", L"more\\levels"), "BOOL false");
    // By design: the search finds the folder in its parent.
    for (const wchar_t* folder : {L"new", L"sub", L"sub\\locked.txt"})
        EXPECT_EQ(Call(L"isDirEmpty", folder), "BOOL false") << Narrow(folder);
    EXPECT_EQ(Call(L"isDirEmpty", (folder_ / L"new\\.").c_str()), "BOOL true");
    for (const wchar_t* missing : {L"", L"sub\\*", L"http://host/page", L"\\\\?\\"}) {
        for (const wchar_t* member : {L"isFileExist", L"isDir", L"isDirEmpty", L"mkDir"})
            EXPECT_EQ(Call(member, missing), "BOOL false") << Narrow(member) << Narrow(missing);
        EXPECT_EQ(Call(L"getSize", missing), "EMPTY") << Narrow(missing);
    }
}

TEST_F(File, CopiesAndMovesThroughTheShell) {
    folder_.Write(L"tree\\inner\\a.txt", "a");
    const auto tree = ReadTree(folder_ / L"tree");
    EXPECT_EQ(Call(L"copy", L"tree", L"copied"), "BOOL true");
    EXPECT_EQ(ReadTree(folder_ / L"copied"), tree);
    EXPECT_EQ(Call(L"move", L"tree", L"moved"), "BOOL true");
    EXPECT_EQ(ReadTree(folder_ / L"moved"), tree);
    EXPECT_FALSE(FileExists(folder_ / L"tree"));
    EXPECT_EQ(Call(L"copy", L"missing", L"x"), "BOOL false");
    for (const wchar_t* member : {L"copy", L"move"}) {
        EXPECT_EQ(Call(member, L"", L"x"), "BOOL false");
        EXPECT_EQ(Call(member, L"copied", L""), "BOOL false");
    }
}

TEST_F(File, HandlesLongPaths) {
    for (const size_t length : {259, 260, 5000}) {
        SCOPED_TRACE(length);
        const std::wstring path = folder_ / std::wstring(length - folder_.Path().size() - 1, L'n');
        for (const std::wstring& form : {path, std::wstring(length, L'n')}) {
            EXPECT_EQ(Call(L"isFileExist", form.c_str()), "BOOL false");
            EXPECT_EQ(Call(L"deleteFile", form.c_str()), "BOOL true");
            EXPECT_EQ(Call(L"copy", form.c_str(), L"x"), "BOOL false");
        }
        const std::wstring file = folder_.Write(L"short", "1");
        EXPECT_EQ(Call(L"move", file.c_str(), path.c_str()), length < 260 ? "BOOL true" : "BOOL false");
        EXPECT_EQ(Call(L"getSize", path.c_str()), length < 260 ? "I8 1" : "EMPTY");
    }
}

}  // namespace
}  // namespace tarvik
