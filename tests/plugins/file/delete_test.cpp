#include "plugins/file/delete_path.h"

#include "tests/plugins/file/file_fixture.h"

namespace tarvik {
namespace {

TEST_F(File, DeletesFilesAndWholeFolders) {
    folder_.Write(L"tree\\inner\\a.txt", "a");
    folder_.Write(L"tree\\b.txt", "b");
    folder_.Write(L"single.txt", "c");
    EXPECT_EQ(Ask(L"deleteFile", L"tree"), "BOOL true");
    EXPECT_EQ(Ask(L"deleteFile", L"single.txt"), "BOOL true");
    EXPECT_THAT(ReadTree(folder_.Path()), IsEmpty());
    EXPECT_EQ(Ask(L"deleteFile", L"tree"), "BOOL true") << "what is not there is deleted already";
    EXPECT_EQ(Ask(L"deleteFile", L""), "BOOL true");
    EXPECT_TRUE(FileExists(folder_.Path())) << "no path is not the page's folder";
    EXPECT_THAT(CallMember(plugin_.Get(), L"deleteFile", L"tree", 1).status, HasStatus(E_INVALIDARG));
}

TEST_F(File, DeletesWhatItCanAndTellsByTheLastStep) {
    folder_.Write(L"tree\\inner\\gone.txt", "a");
    const std::wstring locked = folder_.Write(L"tree\\locked\\file.txt", "b");
    const UniqueHandle lock = HoldFile(locked);
    EXPECT_EQ(Ask(L"deleteFile", L"tree\\locked\\file.txt"), "BOOL false");
    EXPECT_EQ(Ask(L"deleteFile", L"tree"), "BOOL false");
    EXPECT_FALSE(FileExists(folder_ / L"tree\\inner"));
    EXPECT_TRUE(FileExists(locked));
    const std::wstring readOnly = folder_.Write(L"read-only.txt", "c");
    SetFileAttributesW(readOnly.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Ask(L"deleteFile", L"read-only.txt"), "BOOL false");
    SetFileAttributesW(readOnly.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(File, DeletesALinkWithoutWhatItLeadsTo) {
    const std::wstring kept = folder_.Write(L"elsewhere\\kept.txt", "a");
    folder_.Write(L"tree\\file.txt", "b");
    const FolderLink inTree(folder_ / L"tree\\link", folder_ / L"elsewhere");
    const FolderLink alone(folder_ / L"alone", folder_ / L"elsewhere");
    if (!inTree || !alone) GTEST_SKIP() << "this system makes no links to folders here";
    // Whether the links themselves go is the system's part, and Wine does not do it.
    DeletePath(folder_ / L"tree", false);
    DeletePath(folder_ / L"alone", false);
    DeletePath(folder_ / L"alone\\", false);
    EXPECT_FALSE(FileExists(folder_ / L"tree\\file.txt"));
    EXPECT_TRUE(FileExists(kept));
}

// The system keeps a list of what its next start does to files, which is put back at the end.
TEST_F(File, LeavesADelayedDeleteToTheNextStart) {
    constexpr wchar_t kKey[] = L"System\\CurrentControlSet\\Control\\Session Manager";
    constexpr wchar_t kValue[] = L"PendingFileRenameOperations";
    const auto read = [&] {
        std::wstring list(32'000, L'\0');
        DWORD size = static_cast<DWORD>(list.size() * sizeof(wchar_t));
        const auto error =
            RegGetValueW(HKEY_LOCAL_MACHINE, kKey, kValue, RRF_RT_REG_MULTI_SZ, nullptr, list.data(), &size);
        list.resize(error == ERROR_SUCCESS ? size / sizeof(wchar_t) : 0);
        return list;
    };
    const std::wstring before = read();
    folder_.Write(L"tree\\inner\\a.txt", "a");
    if (Ask(L"deleteFile", L"tree", true) != "BOOL true") GTEST_SKIP() << "no right to ask for it here";
    const std::wstring pending = read();
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, kKey, kValue, REG_MULTI_SZ, before.data(),
                    static_cast<DWORD>(before.size() * sizeof(wchar_t)));
    EXPECT_TRUE(FileExists(folder_ / L"tree\\inner\\a.txt"));
    size_t last = 0;
    for (const wchar_t* name : {L"tree\\inner\\a.txt", L"tree\\inner", L"tree"}) {
        const size_t at = pending.find(folder_ / name + std::wstring(2, L'\0'));
        EXPECT_NE(at, std::wstring::npos);
        EXPECT_GE(at, last) << "contents before their folder";
        last = at;
    }
}

}  // namespace
}  // namespace tarvik
