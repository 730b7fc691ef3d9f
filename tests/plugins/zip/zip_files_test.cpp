#include <filesystem>

#include "archive/archive_writer.h"
#include "archive/file_time.h"
#include "plugins/zip/entry_name.h"
#include "script/object.h"
#include "tarvik/text.h"
#include "tests/plugins/zip/zip_fixture.h"

// The contents of an archive, and the files that zip leaves on disk.
namespace tarvik {
namespace {

const std::string kZipFailed = FailText(E_FAIL);

std::string Noise(size_t size) {
    std::string bytes;
    for (unsigned seed = 7; bytes.size() < size; seed = seed * 1'103'515'245 + 12'345)
        bytes += static_cast<char>(seed >> 16);
    return bytes;
}

TEST(EntryName, IsRelativeToTheGivenSource) {
    const struct {
        std::wstring root;
        std::wstring path;
        bool isFolder;
        const wchar_t* name;  // null if rejected
    } cases[] = {
        {L"C:\\x", L"C:\\x\\deep\\a.txt", false, L"deep/a.txt"},
        {L"C:\\x", L"C:\\x\\deep", true, L"deep/"},
        {L"C:\\x\\a.txt", L"C:\\x\\a.txt", false, L"a.txt"},
        {L"C:\\x\\gone.txt", L"C:\\x\\gone.txt", true, L"gone.txt/"},
        {L"C:\\x\\", L"C:\\x\\first.txt", false, L"irst.txt"},
        {L"C:\\x\\", L"C:\\x\\deep\\a.txt", false, L"eep/a.txt"},
        {L"C:\\x\\", L"C:\\x\\d\\a.txt", false, nullptr},
        {L"C:\\x", L"C:\\x\\a:b", false, nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Narrow(c.path));
        const auto name = [&] { return EntryName({c.root.size(), c.path}, c.isFolder); };
        if (c.name) {
            EXPECT_EQ(name(), c.name);
        } else {
            EXPECT_THROW(name(), StatusError);
        }
    }
}

// `progress` changes the sources while they are packed.
TEST_F(Zip, DetectsSourcesThatChange) {
    folder_.Write(L"source\\a", "1");
    const std::wstring later = folder_.Write(L"source\\b", Noise(200'000));
    const auto packWith = [&](const wchar_t* at, auto change) {
        return Pack(PackingOf(Source()),
                    [&](const Recorder::Record& call) {
                        if (std::wstring_view(call.arguments[0].bstrVal).ends_with(at)) change();
                        return Variant();
                    })
            .text;
    };
    std::error_code ignored;
    EXPECT_EQ(packWith(L"b", [&] { std::filesystem::resize_file(later, 100, ignored); }), kZipFailed);
    EXPECT_FALSE(FileExists(Archive()));
    const std::string content = Noise(200'000);
    folder_.Write(L"source\\b", content);
    EXPECT_EQ(packWith(L"b", [&] { std::filesystem::resize_file(later, 300'000, ignored); }), kSuccess);
    EXPECT_EQ(RunOn(ReadFileBytes(Archive())).text, kSuccess);
    EXPECT_EQ(ReadFileBytes(Dest() + L"\\b"), content) << "without the appended bytes";
    DeleteFileW(Archive().c_str());
    EXPECT_EQ(packWith(L"a", [&] { std::filesystem::remove(later, ignored); }), kSuccess);
    EXPECT_THAT(PackedNames(), ElementsAre("a", "b/"));
}

TEST_F(Zip, LeavesNoFileAfterAFailure) {
    const std::wstring good = folder_.Write(L"source\\a", "1");
    const auto with = [&](const wchar_t* name, auto&& value) {
        return Pack(PackingOf(good).Set(name, value)).text;
    };
    const auto mixed = MakeCom<CArray>();
    for (const Variant& element : {Variant::Text(good), Variant::I4(1)})
        mixed->Push(&element);
    for (const wchar_t* name : {L"src", L"dest"}) {
        EXPECT_EQ(with(name, 5), kZipFailed);
        EXPECT_EQ(with(name, MakeCom<CObject>()), kZipFailed);
    }
    EXPECT_EQ(with(L"src", mixed), kZipFailed);
    EXPECT_EQ(with(L"src", (folder_ / L"missing").c_str()), kZipFailed);
    EXPECT_EQ(with(L"dest", (folder_ / L"missing\\packed.zip").c_str()),
              FailText(HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND)));
    {
        const UniqueHandle locked = HoldFile(good);
        EXPECT_EQ(Pack(PackingOf(Source())).text, kZipFailed);
    }
    EXPECT_EQ(ReadTree(folder_.Path()).size(), 2u);

    folder_.Write(L"packed.zip", "mine");
    EXPECT_EQ(Pack(PackingOf(good)).text, FailText(HRESULT_FROM_WIN32(ERROR_FILE_EXISTS)));
    {
        const UniqueHandle inUse = HoldFile(Archive(), FILE_SHARE_READ);
        EXPECT_EQ(with(L"overWrite", true), FailText(HRESULT_FROM_WIN32(ERROR_SHARING_VIOLATION)));
    }
    EXPECT_EQ(ReadFileBytes(Archive()), "mine");
    EXPECT_EQ(with(L"overWrite", true), kSuccess);
    EXPECT_THAT(PackedNames(), ElementsAre("a"));
}

TEST_F(Zip, ExcludesTheArchiveItself) {
    folder_.Write(L"source\\a", "1");
    folder_.Write(L"source\\deep\\packed.zip", "another one");
    const std::wstring archive = folder_.Write(L"source\\the archive of all.zip", "");
    const std::wstring shortPath =
        ReadPath([&](wchar_t* buffer) { GetShortPathNameW(archive.c_str(), buffer, kPathLength); });
    for (const std::wstring& form : {archive, shortPath, Source() + L"\\.\\deep/../THE ARCHIVE of all.zip"}) {
        const OptionObject options = PackingOf(Source()).Set(L"dest", form.c_str()).Set(L"overWrite", true);
        EXPECT_EQ(Pack(options).text, kSuccess) << Narrow(form);
        EXPECT_THAT(EntryNames(ReadFileBytes(archive)), ElementsAre("a", "deep/packed.zip", "deep/"));
    }
    DeleteFileW(archive.c_str());
    EXPECT_EQ(Pack(PackingOf(Source()).Set(L"dest", archive.c_str())).text, kSuccess);
    EXPECT_THAT(EntryNames(ReadFileBytes(archive)), ElementsAre("a", "deep/packed.zip", "deep/"));
}

}  // namespace
}  // namespace tarvik
