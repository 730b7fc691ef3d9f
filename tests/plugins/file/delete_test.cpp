#include "plugins/file/delete_path.h"
#include "tests/plugins/file/file_fixture.h"

namespace tarvik {
namespace {

TEST_F(File, DeletesFilesAndWholeFolders) {
    folder_.Write(L"tree\\inner\\a.txt", "a");
    folder_.Write(L"tree\\b.txt", "b");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(Call(L"deleteFile", L"tree"), "BOOL true");
        EXPECT_FALSE(FileExists(folder_ / L"tree"));
    }
    EXPECT_EQ(Call(L"deleteFile", L""), "BOOL true");
    EXPECT_TRUE(FileExists(folder_.Path())) << "an empty path is not the page's folder";
}

TEST_F(File, SkipsLockedFilesAndReportsTheLastStep) {
    folder_.Write(L"tree\\inner\\gone.txt", "a");
    const std::wstring locked = folder_.Write(L"tree\\locked\\file.txt", "b");
    const UniqueHandle lock = HoldFile(locked);
    EXPECT_EQ(Call(L"deleteFile", L"tree\\locked\\file.txt"), "BOOL false");
    EXPECT_EQ(Call(L"deleteFile", L"tree"), "BOOL false");
    EXPECT_FALSE(FileExists(folder_ / L"tree\\inner"));
    EXPECT_TRUE(FileExists(locked));
    const std::wstring readOnly = folder_.Write(L"read-only.txt", "c");
    SetFileAttributesW(readOnly.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Call(L"deleteFile", L"read-only.txt"), "BOOL false");
    SetFileAttributesW(readOnly.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(File, DeletesALinkWithoutItsTarget) {
    const std::wstring kept = folder_.Write(L"elsewhere\\kept.txt", "a");
    folder_.Write(L"tree\\file.txt", "b");
    const FolderLink inTree(folder_ / L"tree\\link", folder_ / L"elsewhere");
    const FolderLink alone(folder_ / L"alone", folder_ / L"elsewhere");
    if (!inTree || !alone) GTEST_SKIP() << "no links to folders here";
    // Wine does not delete the links themselves, so only their target is tested.
    DeletePath(folder_ / L"tree", false);
    DeletePath(folder_ / L"alone", false);
    DeletePath(folder_ / L"alone\\", false);
    EXPECT_FALSE(FileExists(folder_ / L"tree\\file.txt"));
    EXPECT_TRUE(FileExists(kept));
}

// The system stores the file operations of its next start in the registry. The test restores that value.
TEST_F(File, SchedulesADelayedDeleteForTheNextStart) {
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
    if (Call(L"deleteFile", L"tree", true) != "BOOL true") GTEST_SKIP() << "access denied";
    const std::wstring pending = read();
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, kKey, kValue, REG_MULTI_SZ, before.data(),
                    static_cast<DWORD>(before.size() * sizeof(wchar_t)));
    EXPECT_TRUE(FileExists(folder_ / L"tree\\inner\\a.txt"));
    size_t last = 0;
    for (const wchar_t* name : {L"tree\\inner\\a.txt", L"tree\\inner", L"tree"}) {
        const size_t at = pending.find(folder_ / name + std::wstring(2, L'\0'));
        EXPECT_NE(at, std::wstring::npos);
        EXPECT_GE(at, last) << "contents come before their folder";
        last = at;
    }
}

}  // namespace
}  // namespace tarvik
