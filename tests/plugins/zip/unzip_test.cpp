#include "script/object.h"
#include "tests/plugins/zip/unzip_fixture.h"
#include "tests/support/leak_check.h"
#include "tests/support/status_text.h"
#include "tests/support/waiting.h"

// The call, its callbacks, and how `progress` steers a run.
namespace tarvik {
namespace {

const std::string kLong(70'000, 'x');
const std::string kArchive =
    WriteArchive({{"folder/", ""}, {"folder/a.txt", "first"}, {"b.txt", "second", 0}});

TEST_F(Unzip, AndZipRefuseWrongCallsAtOnce) {
    for (const auto& [name, expectedId] : {std::pair(L"unzip", -6999), std::pair(L"zip", -6998)}) {
        const auto call = [&, name = name](auto&&... arguments) {
            return CallMember(plugin_.Get(), name, std::forward<decltype(arguments)>(arguments)...).status;
        };
        EXPECT_THAT(call(), HasStatus(E_INVALIDARG));
        EXPECT_THAT(call(L"archive.zip"), HasStatus(E_INVALIDARG));
        EXPECT_THAT(call(static_cast<IDispatch*>(nullptr)), HasStatus(E_INVALIDARG));
        EXPECT_THAT(GetMember(plugin_.Get(), name).status, HasStatus(E_NOTIMPL));
        DISPID id = 0;
        EXPECT_THAT(IdOf(plugin_.Get(), name, &id), HasStatus(S_OK));
        EXPECT_EQ(id, expectedId);
    }
    DISPID id = 0;
    EXPECT_THAT(IdOf(plugin_.Get(), L"Unzip", &id), HasStatus(DISP_E_UNKNOWNNAME));
}

TEST_F(Unzip, HandsTheContextToEveryLastCallback) {
    OptionObject plain = OptionsFor(kArchive);
    plain.Set(L"context", 7);
    EXPECT_EQ(Run(plain).text, "success: I4 7");

    const auto object = MakeCom<CObject>();
    OptionObject withObject = OptionsFor(kArchive);
    withObject.Set(L"context", object);
    EXPECT_EQ(Run(withObject).text,
              "fail: DISPATCH, I4 " + std::to_string(HRESULT_FROM_WIN32(ERROR_FILE_EXISTS)));
}

TEST_F(Unzip, ReportsMembersAndData) {
    OptionObject options =
        OptionsFor(WriteArchive({{"d/", ""}, {"d/long", kLong}, {"stored", kLong, 0}, {"e", ""}}));
    options.Set(L"context", L"c");
    const Ending ending = Run(options);
    EXPECT_EQ(ending.text, "success: BSTR c");
    EXPECT_EQ(ending.progress,
              (std::vector<std::string>{
                  "BSTR d/", "BSTR d/long", "BSTR d/long, UI4 140000, UI4 32768, BSTR c",
                  "BSTR d/long, UI4 140000, UI4 65536, BSTR c", "BSTR d/long, UI4 140000, UI4 70000, BSTR c",
                  "BSTR stored", "BSTR stored, UI4 140000, UI4 140000, BSTR c", "BSTR e"}));
}

struct Steering {
    const char* when;  // the form of progress that is answered
    Variant answer;
    std::string ending;
    size_t filesLeft;
};

TEST_F(Unzip, IsSteeredByTheAnswerOfProgress) {
    const std::string aborted = FailText(E_ABORT);
    const std::string failed = FailText(E_FAIL);
    Steering cases[] = {
        {"start", Variant::Bool(true), kSuccess, 2},     {"start", Variant::Bool(false), aborted, 0},
        {"start", Variant::I4(0), kSuccess, 0},          {"start", Variant::I4(1), kSuccess, 2},
        {"start", Variant::R8(0), kSuccess, 2},          {"start", Variant::Null(), kSuccess, 2},
        {"start", Variant::Text(L"false"), kSuccess, 2}, {"data", Variant::Bool(true), kSuccess, 2},
        {"data", Variant::Bool(false), failed, 1},       {"data", Variant::I4(0), kSuccess, 2},
    };
    for (const Steering& steering : cases) {
        SCOPED_TRACE(std::string(steering.when) + " " + ValueText(steering.answer));
        const TempFolder kept;
        OptionObject options = OptionsFor(WriteArchive({{"a", "aaaa"}, {"b", "bbbb"}}));
        options.Set(L"dest", kept.Path().c_str());
        const auto answer = [&](const Recorder::Record& call) {
            const bool atStart = call.arguments.size() == 1;
            return atStart == (std::string("start") == steering.when) ? Variant::Copy(steering.answer)
                                                                      : Variant();
        };
        EXPECT_EQ(Run(options, answer).text, steering.ending);
        EXPECT_EQ(ReadTree(kept.Path()).size(), steering.filesLeft);
    }
}

TEST_F(Unzip, SkipsWhatProgressAnsweredWithZero) {
    folder_.Write(L"out\\folder\\a.txt", "mine");
    const auto skip = [](const Recorder::Record& call) {
        return Recorder::Text(call) == "BSTR folder/a.txt" ? Variant::I4(0) : Variant();
    };
    EXPECT_EQ(RunOn(kArchive, skip).text, kSuccess);
    EXPECT_EQ(ReadFileBytes(Dest() + L"\\folder\\a.txt"), "mine");
    EXPECT_EQ(ReadFileBytes(Dest() + L"\\b.txt"), "second");
    // Folders are made before they can be skipped.
    const auto skipAll = [](const Recorder::Record&) { return Variant::I4(0); };
    EXPECT_EQ(RunOn(WriteArchive({{"only/", ""}, {"above/a.txt", "1"}}), skipAll).text, kSuccess);
    EXPECT_TRUE(FileExists(Dest() + L"\\only"));
    EXPECT_TRUE(FileExists(Dest() + L"\\above"));
    EXPECT_FALSE(FileExists(Dest() + L"\\above\\a.txt"));
}

TEST_F(Unzip, EndsWithoutCallbacksWhereNoneWereGiven) {
    const Holdings before = Holdings::Now();
    {
        OptionObject options = OptionsFor(kArchive);
        CallMember(plugin_.Get(), L"unzip", static_cast<IDispatch*>(options));
    }
    // The run holds the plug-in, and gives everything back at its end.
    plugin_.Reset();
    EXPECT_TRUE(PumpUntil([&] { return FileExists(Dest() + L"\\b.txt"); }));
    EXPECT_TRUE(
        PumpUntil([&] { return Holdings::Now().GrownSince(before).find("COM") == std::string::npos; }));
}

}  // namespace
}  // namespace tarvik
