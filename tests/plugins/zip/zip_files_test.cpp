#include <windows.h>

#include <ctime>
#include <filesystem>

#include "base/owners.h"
#include "base/text.h"
#include "plugins/zip/archive_reader.h"
#include "plugins/zip/archive_writer.h"
#include "plugins/zip/entry_name.h"
#include "plugins/zip/file_time.h"
#include "script/object.h"
#include "tests/plugins/zip/zip_fixture.h"

// What goes into an archive, and what is left on the disk.
namespace tarvik {
namespace {

const std::string kZipFailed = ZipFailText(E_FAIL);

std::string Noise(size_t size) {
    std::string bytes;
    for (unsigned seed = 7; bytes.size() < size; seed = seed * 1'103'515'245 + 12'345)
        bytes += static_cast<char>(seed >> 16);
    return bytes;
}

TEST_F(Zip, GivesBackWhatItPacked) {
    folder_.Write(L"source\\with blanks.txt", std::string(300'000, 'x'));
    folder_.Write(L"source\\d\u00E9j\u00E0 vu\\\u00E9t\u00E9.txt", "\xC3\xA9");
    folder_.Write(L"source\\\u6F22\u5B57\\\u65E5\u672C\u8A9E.txt", "1234");
    folder_.Write(L"source\\noise", Noise(300'000));
    folder_.Write(L"source\\empty", "");
    folder_.Write(L"source\\three", "123");
    CreateDirectoryW((Source() + L"\\folder").c_str(), nullptr);
    OptionObject options = PackingOf(Source());
    ASSERT_EQ(Pack(options).text, kSuccess);
    const std::string packed = ReadFileBytes(Archive());
    EXPECT_LT(packed.size(), 310'000u);
    EXPECT_EQ(RunOn(packed).text, kSuccess);
    EXPECT_EQ(ReadTree(Dest()), ReadTree(Source()));
}

TEST_F(Zip, TellsTheTimeOfFiles) {
    const auto packedTime = [&](std::time_t time) {
        const std::wstring path = folder_.Write(L"source\\a", "1");
        {
            const FILETIME fileTime = ToFileTime(time);
            const UniqueHandle file(
                CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr));
            SetFileTime(file.Get(), nullptr, nullptr, &fileTime);
        }
        OptionObject options = PackingOf(path);
        options.Set(L"overWrite", true);
        EXPECT_EQ(Pack(options).text, kSuccess);
        const std::string archive = ReadFileBytes(Archive());
        return ArchiveReader(BytesOf(archive)).Statistics(0).m_time;
    };
    EXPECT_EQ(packedTime(1'627'652'758), 1'627'652'758);
    // What the format cannot tell becomes the nearest that it can, give or take a time zone.
    constexpr std::time_t kTwoDays = 2 * 24 * 60 * 60;
    EXPECT_NEAR(packedTime(-1'000'000), 315'532'800, kTwoDays);
    EXPECT_NEAR(packedTime(5'000'000'000), 4'354'819'200, kTwoDays);
}

TEST(EntryName, FollowsTheSourceThatScriptNamed) {
    struct Case {
        const wchar_t* root;
        const wchar_t* path;
        bool isFolder;
        const wchar_t* name;  // null: refused
    };
    for (const Case& test : std::initializer_list<Case>{
             {L"C:\\x", L"C:\\x\\deep\\a.txt", false, L"deep/a.txt"},
             {L"C:\\x", L"C:\\x\\deep", true, L"deep/"},
             {L"C:\\x\\a.txt", L"C:\\x\\a.txt", false, L"a.txt"},
             {L"C:/x/a.txt", L"C:/x/a.txt", false, L"a.txt"},
             {L"C:\\x\\gone.txt", L"C:\\x\\gone.txt", true, L"gone.txt/"},
             {L"C:\\x\\", L"C:\\x\\first.txt", false, L"irst.txt"},
             {L"C:\\x\\", L"C:\\x\\deep\\a.txt", false, L"eep/a.txt"},
             {L"C:\\x\\", L"C:\\x\\d\\a.txt", false, nullptr},
             {L"C:\\x\\", L"C:\\x\\f", false, nullptr},
             {L"C:\\x", L"C:\\x\\a:b", false, nullptr},
         }) {
        SCOPED_TRACE(Narrow(test.path));
        const Source source = {wcslen(test.root), test.path};
        if (test.name) {
            EXPECT_EQ(EntryName(source, test.isFolder), test.name);
        } else {
            EXPECT_THROW(EntryName(source, test.isFolder), StatusError);
        }
    }
}

TEST(ArchiveWriter, StopsAtTheLimitsOfTheFormat) {
    const auto write = [](void*, mz_uint64, const void*, size_t count) { return count; };
    ArchiveWriter archive(write, nullptr);
    for (size_t i = 0; i < ArchiveWriter::kMostEntries; ++i)
        archive.AddFolder(L"a/");
    archive.Finish();

    ArchiveWriter tooMany(write, nullptr);
    for (size_t i = 0; i < ArchiveWriter::kMostEntries; ++i)
        tooMany.AddFolder(L"a/");
    EXPECT_THROW(tooMany.AddFolder(L"a/"), StatusError);

    const TempFolder folder;
    const std::vector<std::wstring> two = {folder.Write(L"a", "1"), folder.Write(L"b", "12")};
    EXPECT_EQ(FindSources(two, 2).totalSize, 3u);
    EXPECT_THROW(FindSources(two, 1), StatusError);
}

// Answers of progress change what is packed while it is packed.
TEST_F(Zip, FindsOutWhatChangesBelowIt) {
    folder_.Write(L"source\\a", "1");
    const std::wstring later = folder_.Write(L"source\\b", Noise(200'000));
    const auto packWith = [&](const wchar_t* at, auto change) {
        OptionObject options = PackingOf(Source());
        return Pack(options,
                    [&](const Recorder::Record& call) {
                        if (std::wstring_view(call.arguments[0].bstrVal).ends_with(at)) change();
                        return Variant();
                    })
            .text;
    };
    std::error_code ignored;
    EXPECT_EQ(packWith(L"b", [&] { std::filesystem::resize_file(later, 200'001, ignored); }), kZipFailed);
    EXPECT_EQ(packWith(L"b", [&] { std::filesystem::resize_file(later, 100, ignored); }), kZipFailed);
    EXPECT_FALSE(FileExists(Archive()));
    EXPECT_EQ(packWith(L"a", [&] { std::filesystem::remove(later, ignored); }), kSuccess);
    EXPECT_EQ(EntryNames(ReadFileBytes(Archive())), (std::vector<std::string>{"a", "b/"}));
}

TEST_F(Zip, FailsWithNoFileLeftAndNoneReplaced) {
    const auto pack = [&](auto&& src, auto&& dest, bool overWrite = false) {
        OptionObject options;
        options.Set(L"src", src).Set(L"dest", dest).Set(L"overWrite", overWrite);
        return Pack(options).text;
    };
    const std::wstring good = folder_.Write(L"source\\a", "1");
    const auto mixed = MakeCom<CArray>();
    for (const Variant& element : {Variant::Text(good), Variant::I4(1)})
        mixed->Push(&element);
    const std::wstring missing = folder_ / L"missing";
    const std::wstring dest = Archive();
    EXPECT_EQ(pack(missing.c_str(), dest.c_str()), kZipFailed);
    EXPECT_EQ(pack(5, dest.c_str()), kZipFailed);
    EXPECT_EQ(pack(mixed, dest.c_str()), kZipFailed);
    EXPECT_EQ(pack(MakeCom<CObject>(), dest.c_str()), kZipFailed);
    EXPECT_EQ(pack(good.c_str(), 5), kZipFailed);
    EXPECT_EQ(pack(good.c_str(), MakeCom<CObject>()), kZipFailed);
    EXPECT_EQ(pack(good.c_str(), (missing + L"\\packed.zip").c_str()),
              ZipFailText(HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND)));
    // The archive lies in its own source, and grows while it is read.
    EXPECT_EQ(pack(Source().c_str(), (Source() + L"\\packed.zip").c_str()), kZipFailed);
    // The first that is found has nothing in it yet.
    const std::wstring first = Source() + L"\\0.zip";
    EXPECT_EQ(pack(Source().c_str(), first.c_str()), kSuccess);
    EXPECT_EQ(EntryNames(ReadFileBytes(first)), (std::vector<std::string>{"0.zip", "a"}));
    DeleteFileW(first.c_str());
    {
        const UniqueHandle locked(
            CreateFileW(good.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_EQ(pack(Source().c_str(), dest.c_str()), kZipFailed);
    }
    EXPECT_EQ(ReadTree(folder_.Path()).size(), 2u);

    folder_.Write(L"packed.zip", "mine");
    EXPECT_EQ(pack(good.c_str(), dest.c_str()), ZipFailText(HRESULT_FROM_WIN32(ERROR_FILE_EXISTS)));
    {
        const UniqueHandle inUse(
            CreateFileW(dest.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_EQ(pack(good.c_str(), dest.c_str(), true),
                  ZipFailText(HRESULT_FROM_WIN32(ERROR_SHARING_VIOLATION)));
    }
    EXPECT_EQ(ReadFileBytes(dest), "mine");
    EXPECT_EQ(pack(good.c_str(), dest.c_str(), true), kSuccess);
    EXPECT_EQ(EntryNames(ReadFileBytes(dest)), std::vector<std::string>{"a"});
}

}  // namespace
}  // namespace tarvik
