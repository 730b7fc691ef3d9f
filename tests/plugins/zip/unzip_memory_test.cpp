#include <windows.h>

#include <thread>

#include "base/owners.h"
#include "tests/plugins/zip/unzip_fixture.h"

// The memory source, and a native caller as the start of the host is one.
namespace tarvik {
namespace {

OptionObject MemoryOptions(const std::string& archive, const std::wstring& dest) {
    OptionObject options;
    options.Set(L"buffer", Variant::I8(reinterpret_cast<LONGLONG>(archive.data())))
        .Set(L"length", static_cast<int>(archive.size()))
        .Set(L"dest", dest.c_str());
    return options;
}

TEST_F(Unzip, ReadsAnArchiveInMemoryAndFailsInAnotherOrder) {
    const std::string invalid = "fail: DISPATCH null, EMPTY, I4 " + std::to_string(E_INVALIDARG);
    const std::string archive = WriteArchive({{"a", "content"}});
    for (const wchar_t* missing : {L"buffer", L"length", L"dest"}) {
        OptionObject options = MemoryOptions(archive, Dest());
        options.Set(missing, Variant());
        EXPECT_EQ(Run(options).text, invalid);
    }
    OptionObject noAddress = MemoryOptions(archive, Dest());
    noAddress.Set(L"buffer", 5);
    EXPECT_EQ(Run(noAddress).text, invalid);

    OptionObject cut = MemoryOptions(archive, Dest());
    cut.Set(L"length", static_cast<int>(archive.size() - 1));
    cut.Set(L"context", 9);
    EXPECT_EQ(Run(cut).text, "fail: DISPATCH null, I4 9, I4 " + std::to_string(E_FAIL));
    EXPECT_FALSE(FileExists(Dest()));

    OptionObject whole = MemoryOptions(archive, Dest());
    EXPECT_EQ(Run(whole).text, kSuccess);
    EXPECT_EQ(ReadFileBytes(Dest() + L"\\a"), "content");
}

// As the start of the host does.
bool UnpackAndWait(const std::wstring& source, const std::wstring& dest) {
    const UniqueHandle ended(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const auto signal = [&](const Recorder::Record&) { return SetEvent(ended.Get()), Variant(); };
    const auto success = MakeCom<Recorder>(signal);
    const auto fail = MakeCom<Recorder>(signal);
    OptionObject options;
    options.Set(L"src", source.c_str()).Set(L"dest", dest.c_str());
    options.Set(L"success", success).Set(L"fail", fail);
    CallMember(MakeCom<CZipPlugin>().Get(), L"unzip", static_cast<IDispatch*>(options));
    EXPECT_EQ(WaitForSingleObject(ended.Get(), 20'000), WAIT_OBJECT_0);
    EXPECT_EQ(success->calls.size() + fail->calls.size(), 1u);
    return !success->calls.empty();
}

TEST_F(Unzip, ServesACallerThatWaitsWithoutPumpingMessages) {
    const std::wstring attached = folder_.Write(L"attached.exe", "MZ" + WriteArchive({{"a", "1"}}));
    const std::wstring bare = folder_.Write(L"bare.exe", "MZ");
    std::thread([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        EXPECT_TRUE(UnpackAndWait(attached, Dest()));
        EXPECT_FALSE(UnpackAndWait(bare, folder_ / L"other"));
        CoUninitialize();
    }).join();
    EXPECT_EQ(ReadFileBytes(Dest() + L"\\a"), "1");
    EXPECT_FALSE(FileExists(folder_ / L"other"));
}

}  // namespace
}  // namespace tarvik
