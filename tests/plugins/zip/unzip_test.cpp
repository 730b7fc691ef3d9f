#include "tests/plugins/zip/zip_fixture.h"

// The options, sources and callbacks of unzip.
namespace tarvik {
namespace {

TEST_F(Unzip, ReportsMissingOptions) {
    const std::string archive = "program" + WriteArchive({{"a", "1"}});
    const std::string noPath = UnzipFailText(HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND));
    const auto with = [&](const wchar_t* name, auto value) {
        return Run(OptionsFor(archive).Set(name, value)).text;
    };
    EXPECT_EQ(with(L"dest", 5), UnzipFailText(E_INVALIDARG));
    EXPECT_EQ(with(L"dest", L""), UnzipFailText(E_INVALIDARG)) << "not the root of the drive";
    EXPECT_EQ(with(L"src", nullptr), noPath);
    EXPECT_EQ(with(L"index", 1), UnzipFailText(E_FAIL));
    EXPECT_EQ(with(L"index", -1), UnzipFailText(E_FAIL));
    EXPECT_EQ(with(L"index", L"1"), kSuccess);
    EXPECT_EQ(RunOn("").text, UnzipFailText(HRESULT_FROM_WIN32(ERROR_FILE_INVALID)));
}

TEST_F(Unzip, ReadsAnArchiveInMemory) {
    const auto fail = [](const std::string& context, HRESULT status) {
        return "fail: DISPATCH null, " + context + ", I4 " + std::to_string(status);
    };
    const std::string archive = WriteArchive({{"a", "content"}});
    const int length = static_cast<int>(archive.size());
    const auto with = [&](const wchar_t* name, auto value) {
        OptionObject options;
        options.Set(L"buffer", Variant::I8(reinterpret_cast<LONGLONG>(archive.data())))
            .Set(L"length", length)
            .Set(L"dest", Dest().c_str())
            .Set(L"context", 9);
        return Run(options.Set(name, std::move(value))).text;
    };
    for (const wchar_t* missing : {L"buffer", L"length", L"dest"})
        EXPECT_EQ(with(missing, Variant()), fail("I4 9", E_INVALIDARG));
    EXPECT_EQ(with(L"buffer", 5), fail("I4 9", E_INVALIDARG));
    EXPECT_EQ(with(L"length", length - 1), fail("I4 9", E_FAIL));
    EXPECT_FALSE(FileExists(Dest()));
    EXPECT_EQ(with(L"context", Variant()), kSuccess);
    EXPECT_EQ(ReadFileBytes(Dest() + L"\\a"), "content");
}

TEST_F(Unzip, ReportsMembersAndData) {
    const std::string content(70'000, 'x');
    const OptionObject options =
        OptionsFor(WriteArchive({{"d/", ""}, {"d/long", content}, {"stored", content, 0}, {"e", ""}}));
    const Completion completion = Run(options.Set(L"context", L"c"));
    EXPECT_EQ(completion.text, "success: BSTR c");
    EXPECT_THAT(completion.progress,
                ElementsAre("BSTR d/", "BSTR d/long", "BSTR d/long, UI4 140000, UI4 32768, BSTR c",
                            "BSTR d/long, UI4 140000, UI4 65536, BSTR c",
                            "BSTR d/long, UI4 140000, UI4 70000, BSTR c", "BSTR stored",
                            "BSTR stored, UI4 140000, UI4 140000, BSTR c", "BSTR e"));
}

TEST_F(Unzip, IsControlledByTheResultOfProgress) {
    const struct {
        bool atStart;  // whether the call at a member's start returns `answer`, or those for data
        Variant answer;
        std::string completion;
        size_t filesLeft;
    } cases[] = {
        {true, Variant::Bool(true), kSuccess, 2},  {true, Variant::Bool(false), UnzipFailText(E_ABORT), 0},
        {true, Variant::I4(0), kSuccess, 0},       {true, Variant::R8(0), kSuccess, 2},
        {false, Variant::Bool(true), kSuccess, 2}, {false, Variant::Bool(false), UnzipFailText(E_FAIL), 1},
        {false, Variant::I4(0), kSuccess, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE((c.atStart ? "start " : "data ") + ValueText(c.answer));
        const TempFolder kept;
        const OptionObject options = OptionsFor(WriteArchive({{"a", "aaaa"}, {"b", "bbbb"}}));
        const auto answer = [&](const Recorder::Record& call) {
            return (call.arguments.size() == 1) == c.atStart ? Variant::Copy(c.answer) : Variant();
        };
        EXPECT_EQ(Run(options.Set(L"dest", kept.Path().c_str()), answer).text, c.completion);
        EXPECT_EQ(ReadTree(kept.Path()).size(), c.filesLeft);
    }
}

}  // namespace
}  // namespace tarvik
