#include <cstdlib>
#include <filesystem>
#include <random>

#include "host/web_browser.h"
#include "tarvik/stream.h"
#include "tarvik/text.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/support/console_program.h"
#include "tests/support/test.h"
#include "tests/support/web_server.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

// More bytes than the disk can hold, which do not compress.
std::string Noise() {
    std::mt19937 random(1);
    std::string noise(3'000'000, '\0');
    for (char& byte : noise)
        byte = static_cast<char>(random());
    return noise;
}

fs::path SmallDisk() {
    const wchar_t* const path = _wgetenv(L"TARVIK_SMALL_DISK");
    return path ? path : L"";
}

const HRESULT kDiskFull = HRESULT_FROM_WIN32(ERROR_DISK_FULL);

class FullDisk : public testing::Test {
  protected:
    FullDisk() { browser_->CreateHidden(nullptr, folder_.Write(L"page.html", "<html></html>").c_str()); }
    void SetUp() override {
        if (disk_.empty()) GTEST_SKIP() << "this program is run by on_small_disk";
    }
    void TearDown() override {
        if (disk_.empty()) return;
        for (const auto& entry : fs::directory_iterator(disk_))
            fs::remove_all(entry);
    }

    ComPtr<IDispatch> Plugin(const wchar_t* name) const {
        ComPtr<IDispatch> plugin;
        browser_->GetPlugin(name, plugin.GetAddressOf());
        return plugin;
    }
    bool IsDiskEmpty() const { return fs::is_empty(disk_); }

    const fs::path disk_ = SmallDisk();
    const std::wstring place_ = (disk_ / L"place").wstring();
    const std::string noise_ = Noise();
    const TempFolder folder_;
    const std::wstring source_ = folder_.Write(L"source", noise_);
    const ComPtr<CWebBrowser> browser_ = MakeCom<CWebBrowser>();
};

TEST_F(FullDisk, LeavesNoPartialArchiveOrFolder) {
    const std::wstring archive = folder_.Write(L"a.zip", WriteArchive({{"one", "1"}, {"two", noise_}}));
    OptionObject options;
    options.Set(L"dest", place_.c_str()).Set(L"src", source_.c_str());
    EXPECT_EQ(RunToCompletion(Plugin(L"minizip").Get(), L"zip", options).text, FailText(E_FAIL));
    EXPECT_TRUE(IsDiskEmpty());
    options.Set(L"src", archive.c_str());
    EXPECT_EQ(RunToCompletion(Plugin(L"minizip").Get(), L"unzip", options).text,
              "fail: EMPTY, I4 " + std::to_string(E_FAIL));
    EXPECT_TRUE(IsDiskEmpty());
}

TEST_F(FullDisk, LeavesNothingOfAPackedProgram) {
    folder_.Write(L"app\\resource\\index.html", "<!doctype html>");
    folder_.Write(L"app.exe", "host" + WriteArchive({{"one", "1"}, {"two", noise_}}));
    const auto fail = [&](const std::vector<std::wstring>& arguments) {
        const ConsoleProgram pack(L"tarvik-pack", arguments, folder_.Path());
        EXPECT_EQ(pack.Wait(), 1u);
        EXPECT_TRUE(IsDiskEmpty());
        return pack.Error();
    };
    EXPECT_THAT(fail({L"build", L"app", L"-o", place_}), HasSubstr("cannot be created"));
    EXPECT_THAT(fail({L"extract", L"app.exe", place_}),
                AllOf(HasSubstr("\"two\" in"), HasSubstr(Narrow(SystemText(kDiskFull)))));
}

TEST_F(FullDisk, LeavesNoPartialDownload) {
    const auto client = CallMember(Plugin(L"http").Get(), L"createClient");
    // The last chunk of the second file fits on the disk only in part.
    for (const size_t size : {noise_.size(), size_t{1'024'500}}) {
        const WebServer server(
            [&](const WebExchange& exchange) { exchange.Respond(noise_.substr(0, size)); });
        OptionObject options;
        options.Set(L"url", server.Url().c_str()).Set(L"destPath", place_.c_str());
        EXPECT_EQ(RunToCompletion(client.value.pdispVal, L"downloadToFile", options).text,
                  FailText(kDiskFull));
        EXPECT_TRUE(IsDiskEmpty());
    }
}

TEST_F(FullDisk, FailsTransfersAndKeepsWrittenBytes) {
    const auto stream = Plugin(L"stream"), file = Plugin(L"fileIO");
    Query<TVK::IStream>(stream.Get())->Write(noise_.data(), static_cast<uint32_t>(noise_.size()), nullptr);
    for (const bool async : {false, true}) {
        CallMember(stream.Get(), L"seek", 0, 0);
        CallMember(file.Get(), L"open", place_.c_str(), L"wc");
        OptionObject options;
        options.Set(L"len", Variant::UI4(3'000'000)).Set(L"src", stream);
        if (async) {
            EXPECT_EQ(RunToCompletion(file.Get(), L"writeAsync", options).text, FailText(kDiskFull));
        } else {
            const ULONG moved = CallMember(file.Get(), L"write", stream, 3'000'000).value.ulVal;
            EXPECT_EQ(moved, fs::file_size(place_)) << "the result is not the number of bytes written";
        }
        CallMember(file.Get(), L"close");
        EXPECT_GT(fs::file_size(place_), 900'000u);
        EXPECT_TRUE(noise_.starts_with(ReadFileBytes(place_)));
    }
}

TEST_F(FullDisk, FailsCopiesAndKeepsTheSource) {
    const auto file = Plugin(L"file");
    for (const wchar_t* member : {L"copyAsync", L"moveAsync"}) {
        OptionObject options;
        options.Set(L"srcPath", source_.c_str()).Set(L"destPath", place_.c_str());
        EXPECT_EQ(RunToCompletion(file.Get(), member, options).text, FailText(kDiskFull)) << member;
        fs::remove(place_);
    }
    EXPECT_EQ(CallText(file.Get(), L"copy", source_.c_str(), place_.c_str()), "BOOL false");
    fs::remove(place_);
    // The result is ignored, because Wine's shell reports success for a failed move.
    CallMember(file.Get(), L"move", source_.c_str(), place_.c_str());
    EXPECT_TRUE(ReadFileBytes(source_) == noise_);
}

}  // namespace
}  // namespace tarvik
