#include "tarvik/stream.h"
#include "tests/plugins/support/page_core.h"

namespace tarvik {
namespace {

class FileIO : public PluginOfPage {
  protected:
    FileIO() : PluginOfPage(L"fileIO") {}

    bool Open(const std::wstring& path, const wchar_t* mode) const {
        return Call(L"open", path.c_str(), mode) == "BOOL true";
    }
    std::string Size() const { return GetText(plugin_.Get(), L"size"); }

    // A stream at its beginning.
    ComPtr<IDispatch> StreamOf(const std::string& bytes) const {
        ComPtr<IDispatch> stream = Plugin(L"stream");
        const auto native = Query<TVK::IStream>(stream.Get());
        native->Write(bytes.data(), static_cast<uint32_t>(bytes.size()), nullptr);
        native->Seek(0, TVK::kFromBegin, nullptr);
        return stream;
    }
};

TEST_F(FileIO, OpensWithTheGivenMode) {
    const std::wstring old = folder_.Write(L"old.txt", "four");
    const std::wstring fresh = folder_ / L"new.txt";
    EXPECT_FALSE(Open(fresh, L"rw")) << "the file must exist by default";
    EXPECT_FALSE(Open(old, L"wn"));
    EXPECT_TRUE(Open(old, L"R, wo?")) << "any case; other characters are ignored";
    EXPECT_EQ(Size(), "R8 4.000000");
    EXPECT_TRUE(Open(old, L"ncer")) << "the last letter counts";
    EXPECT_EQ(Size(), "R8 4.000000");
    EXPECT_TRUE(Open(old, L"wc"));
    EXPECT_EQ(Size(), "R8 0.000000");
    EXPECT_FALSE(Open(L"", L"r"));
    EXPECT_TRUE(Open(L"new.txt", L"wn")) << "relative to the page";
    EXPECT_TRUE(FileExists(fresh));
    EXPECT_FALSE(Open(folder_ / L"no\\such.txt", L"wo")) << "folders are not created";
    EXPECT_EQ(Size(), "R8 0.000000") << "a failed open leaves the object closed";
    const UniqueHandle locked = HoldFile(old);
    EXPECT_FALSE(Open(old, L"r"));
}

TEST_F(FileIO, ReadsIntoStreamsAndWritesFromThem) {
    const std::string large(200'000, 'x');
    const std::wstring path = folder_.Write(L"large", large + "end");
    const std::wstring copy = folder_ / L"copy";
    const auto stream = StreamOf("");
    EXPECT_TRUE(Open(path, L"r"));
    EXPECT_EQ(Call(L"write", StreamOf("x"), 1), "I4 0") << "open for reading only";
    EXPECT_EQ(Call(L"read", stream, 10), "UI4 10");
    EXPECT_EQ(Call(L"read", stream, -1), "UI4 199993") << "the rest";
    EXPECT_EQ(Call(L"read", stream, 1), "I4 0") << "at the end";
    CallMember(stream.Get(), L"seek", 0, 0);
    EXPECT_TRUE(Open(copy, L"wc"));
    EXPECT_EQ(Call(L"write", stream, 500'000), "UI4 200003");
    EXPECT_EQ(Call(L"write", stream, 1), "I4 0");
    Call(L"close");
    Call(L"close");
    EXPECT_EQ(Call(L"read", stream, 10), "I4 0") << "closed";
    EXPECT_TRUE(ReadFileBytes(copy) == large + "end");
}

TEST_F(FileIO, SeeksAndChangesItsSize) {
    const std::wstring path = folder_.Write(L"file", "abcdef");
    EXPECT_TRUE(Open(path, L"rw"));
    EXPECT_EQ(Call(L"seek", -2, 2), "R8 4.000000");
    EXPECT_EQ(Call(L"seek", L"1", 1), "R8 5.000000");
    EXPECT_EQ(Call(L"seek", 3, 0), "R8 3.000000");
    EXPECT_EQ(Call(L"seek", -1, 0), "EMPTY");
    EXPECT_EQ(Call(L"seek", 0, 3), "EMPTY");
    EXPECT_EQ(PutMember(plugin_.Get(), L"size", 0).status, S_OK);
    EXPECT_EQ(Size(), "R8 0.000000");
    EXPECT_EQ(Call(L"write", StreamOf("x"), 1), "UI4 1");
    Call(L"close");
    EXPECT_EQ(ReadFileBytes(path), std::string("\0\0\0x", 4)) << "the position outlives the content";
    EXPECT_EQ(Call(L"seek", 0, 0), "EMPTY") << "closed";
}

// Asynchronous reads and writes.
class Transfer : public FileIO {
  protected:
    static constexpr ULONG kChunkSize = 65536;

    static OptionObject Options(ULONG length) {
        OptionObject options;
        options.Set(L"len", Variant::UI4(length)).Set(L"context", L"mine");
        return options;
    }
    Completion Read(ULONG length, Recorder::Handler answer = {}) const {
        return RunToCompletion(plugin_.Get(), L"readAsync", Options(length), std::move(answer));
    }
    Completion Write(const std::string& bytes, ULONG length, Recorder::Handler answer = {}) const {
        return RunToCompletion(plugin_.Get(), L"writeAsync", Options(length).Set(L"src", StreamOf(bytes)),
                               std::move(answer));
    }

    const std::string succeeded_ = "success: BSTR mine";
    const std::string closed_ = FailText(HRESULT_FROM_WIN32(ERROR_INVALID_HANDLE), "BSTR mine");
};

TEST_F(Transfer, ReadsInChunks) {
    const std::string content = std::string(kChunkSize, 'a') + "end";
    Open(folder_.Write(L"file", content), L"r");
    std::string read;
    const Completion end = Read(1'000'000, [&](const Recorder::Record& call) {
        const auto chunk = Query<TVK::IStream>(call.arguments[0].pdispVal);
        read.append(reinterpret_cast<const char*>(chunk->GetBuffer()), chunk->GetSize());
        return Variant();
    });
    EXPECT_THAT(end.progress, ElementsAre("DISPATCH, BSTR mine", "DISPATCH, BSTR mine"));
    EXPECT_TRUE(read == content);
    EXPECT_EQ(end.text, succeeded_) << "even if the file is shorter";
}

TEST_F(Transfer, WritesInChunksAndPadsTheLast) {
    const std::string content = std::string(kChunkSize, 'a') + "end";
    Open(folder_ / L"file", L"wc");
    EXPECT_THAT(Write(content, kChunkSize + 3).progress, ElementsAre("BSTR mine", "BSTR mine"));
    Open(folder_ / L"padded", L"wc");
    EXPECT_EQ(Write("end", 6).text, succeeded_);
    Call(L"close");
    EXPECT_TRUE(ReadFileBytes(folder_ / L"file") == content);
    EXPECT_EQ(ReadFileBytes(folder_ / L"padded"), std::string("end\0\0\0", 6));
}

TEST_F(Transfer, IsCancelledByProgress) {
    Open(folder_.Write(L"file", std::string(3 * kChunkSize, 'a')), L"r");
    const Completion cancelled =
        Read(3 * kChunkSize, [](const Recorder::Record&) { return Variant::Bool(false); });
    EXPECT_EQ(cancelled.progress.size(), 1u);
    EXPECT_EQ(cancelled.text, "");
    EXPECT_EQ(Call(L"seek", 0, 1), "R8 65536.000000") << "the position is shared";
    const auto close = [this](const Recorder::Record&) { return Call(L"close"), Variant(); };
    EXPECT_EQ(Read(3 * kChunkSize, close).text, closed_) << "closed during the transfer";
    EXPECT_EQ(Read(1).text, closed_) << "closed before";
}

// A page may open another file during a transfer.
TEST_F(Transfer, KeepsItsFile) {
    const std::wstring other = folder_.Write(L"other", "other");
    Open(folder_ / L"first", L"wc");
    const auto open = [&](const Recorder::Record&) { return Open(other, L"rw"), Variant(); };
    EXPECT_EQ(Write(std::string(2 * kChunkSize, 'a'), 2 * kChunkSize, open).text, closed_);
    Call(L"close");
    EXPECT_EQ(ReadFileBytes(other), "other");
    EXPECT_EQ(ReadFileBytes(folder_ / L"first").size(), kChunkSize);
}

}  // namespace
}  // namespace tarvik
