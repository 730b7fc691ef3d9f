#include "tarvik/stream.h"
#include "tests/plugins/support/page_core.h"

namespace tarvik {
namespace {

constexpr ULONG kChunkSize = 65536;

constexpr char kContext[] = "BSTR mine";

class Transfer : public PluginsOfPage {
  protected:
    Variant Call(const wchar_t* member, auto&&... arguments) const {
        return CallMember(plugin_.Get(), member, arguments...).value;
    }
    static OptionObject Options(ULONG length) {
        OptionObject options;
        options.Set(L"len", Variant::UI4(length)).Set(L"context", L"mine");
        return options;
    }
    ComPtr<IDispatch> StreamOf(const std::string& bytes) const {
        ComPtr<IDispatch> stream = Plugin(L"stream");
        const auto native = Query<TVK::IStream>(stream.Get());
        native->Write(bytes.data(), static_cast<uint32_t>(bytes.size()), nullptr);
        native->Seek(0, TVK::kFromBegin, nullptr);
        return stream;
    }
    Completion Run(const wchar_t* member, const OptionObject& options, Recorder::Handler handler = {}) const {
        return RunToCompletion(plugin_.Get(), member, options, std::move(handler));
    }

    ComPtr<IDispatch> plugin_ = Plugin(L"fileIO");
};

TEST_F(Transfer, ReadsInChunks) {
    const std::string content = std::string(kChunkSize, 'a') + std::string(kChunkSize, 'b') + "end";
    Call(L"open", folder_.Write(L"file", content).c_str(), L"r");
    std::string read;
    const Completion end = Run(L"readAsync", Options(1'000'000), [&](const Recorder::Record& call) {
        const auto chunk = Query<TVK::IStream>(call.arguments[0].pdispVal);
        read.append(reinterpret_cast<const char*>(chunk->GetBuffer()), chunk->GetSize());
        return Variant();
    });
    EXPECT_THAT(end.progress,
                ElementsAre("DISPATCH, BSTR mine", "DISPATCH, BSTR mine", "DISPATCH, BSTR mine"));
    EXPECT_TRUE(read == content);
    EXPECT_EQ(end.text, "success: BSTR mine") << "even if the file is shorter";
}

TEST_F(Transfer, WritesInChunksAndPadsTheLast) {
    const std::string content = std::string(kChunkSize, 'a') + "end";
    const std::wstring path = folder_ / L"file";
    Call(L"open", path.c_str(), L"wc");
    OptionObject options = Options(static_cast<ULONG>(content.size()));
    const Completion end = Run(L"writeAsync", options.Set(L"src", StreamOf(content)));
    EXPECT_TRUE(ReadFileBytes(path) == content);
    EXPECT_THAT(end.progress, ElementsAre("BSTR mine", "BSTR mine"));
    Call(L"open", path.c_str(), L"wc");
    EXPECT_EQ(Run(L"writeAsync", Options(6).Set(L"src", StreamOf("end"))).text, "success: BSTR mine");
    Call(L"close");
    EXPECT_EQ(ReadFileBytes(path), std::string("end\0\0\0", 6)) << "padded from a zeroed buffer";
}

TEST_F(Transfer, IsCancelledByProgress) {
    Call(L"open", folder_.Write(L"file", std::string(3 * kChunkSize, 'a')).c_str(), L"r");
    const auto cancel = [](const Recorder::Record&) { return Variant::Bool(false); };
    const Completion cancelled = Run(L"readAsync", Options(3 * kChunkSize), cancel);
    EXPECT_EQ(cancelled.progress.size(), 1u);
    EXPECT_EQ(cancelled.text, "");
    EXPECT_EQ(ValueText(Call(L"seek", 0, 1)), "R8 65536.000000") << "the position is shared";
    const auto close = [this](const Recorder::Record&) { return Call(L"close"); };
    const std::string badHandle = FailText(HRESULT_FROM_WIN32(ERROR_INVALID_HANDLE), kContext);
    EXPECT_EQ(Run(L"readAsync", Options(3 * kChunkSize), close).text, badHandle)
        << "closed during the transfer";
    EXPECT_EQ(Run(L"readAsync", Options(1)).text, badHandle) << "closed before";
}

// A page may open another file during a transfer.
TEST_F(Transfer, KeepsItsFile) {
    const std::wstring other = folder_.Write(L"other", "other");
    Call(L"open", (folder_ / L"first").c_str(), L"wc");
    const auto open = [&](const Recorder::Record&) { return Call(L"open", other.c_str(), L"rw"); };
    const OptionObject options = Options(2 * kChunkSize);
    const Completion end =
        Run(L"writeAsync", options.Set(L"src", StreamOf(std::string(2 * kChunkSize, 'a'))), open);
    EXPECT_EQ(end.text, FailText(HRESULT_FROM_WIN32(ERROR_INVALID_HANDLE), kContext));
    Call(L"close");
    EXPECT_EQ(ReadFileBytes(other), "other");
    EXPECT_EQ(ReadFileBytes(folder_ / L"first").size(), kChunkSize);
}

}  // namespace
}  // namespace tarvik
