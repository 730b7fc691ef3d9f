#include "script/worker_apartment.h"
#include "tarvik/text.h"
#include "tests/plugins/system/system_fixture.h"
#include "tests/support/dialog_driver.h"

namespace tarvik {
namespace {

using testing::UnorderedElementsAreArray;

class ShellExecution : public System {
  protected:
    // Options that start report_arguments.
    OptionObject ReportingProgram(const wchar_t* file, int code, const std::wstring& arguments = L"") const {
        const std::wstring all =
            QuoteArgument(folder_ / file) + L" " + std::to_wstring(code) + L" " + arguments;
        OptionObject options;
        options.Set(L"path", Helper(L"report_arguments.exe").c_str()).Set(L"args", all.c_str());
        return options;
    }
    std::string Execute(const OptionObject& options) const {
        return Call(L"shellExecute", static_cast<IDispatch*>(options));
    }

    // Workers release their references shortly after their last call, and the function last.
    void TearDown() override {
        EXPECT_TRUE(PumpUntil([this] { return ended_->AddRef(), ended_->Release() == 1; }));
    }

    const WorkerApartment workers_;  // as in the program
    const ComPtr<Recorder> ended_ = MakeCom<Recorder>();
};

TEST_F(ShellExecution, ReportsTheExitOfFiftyPrograms) {
    constexpr int kPrograms = 50;
    std::vector<std::string> expected;
    {
        const auto plugin = Plugin(L"system");  // only the workers retain it after this block
        for (int i = 0; i < kPrograms; ++i) {
            const OptionObject options = ReportingProgram((L"reported " + std::to_wstring(i)).c_str(), i * 5);
            options.Set(L"exitCallback", ended_).Set(L"context", i);
            EXPECT_EQ(ResultText(CallMember(plugin.Get(), L"shellExecute", static_cast<IDispatch*>(options))),
                      "BOOL true");
            expected.push_back("UI4 " + std::to_string(i * 5) + ", I4 " + std::to_string(i));
        }
    }
    EXPECT_TRUE(PumpUntil([&] { return ended_->calls.size() == kPrograms; }));
    EXPECT_THAT(ended_->Texts(), UnorderedElementsAreArray(expected));
    for (const auto& call : ended_->calls)
        EXPECT_EQ(call.thread, GetCurrentThreadId());
}

TEST_F(ShellExecution, PassesArgumentsFolderAndEnvironmentAsGiven) {
    folder_.Write(L"work\\inside", "");
    const OptionObject options =
        ReportingProgram(L"reported", 259, L"\"two words\" \"a \\\"quote\\\"\" \u6f22 %TEMP% \"\" last\\");
    const OptionObject context;
    options.Set(L"workDir", L"work").Set(L"exitCallback", ended_).Set(L"context", context);
    EXPECT_EQ(Execute(options), "BOOL true");
    ASSERT_TRUE(PumpUntil([&] { return !ended_->calls.empty(); }));
    EXPECT_EQ(ValueText(ended_->calls[0].arguments[0]), "UI4 259") << "not taken for STILL_ACTIVE";
    EXPECT_EQ(ended_->calls[0].arguments[1].pdispVal, static_cast<IDispatch*>(context));
    EXPECT_EQ(ReadFileBytes(folder_ / L"reported"),
              Narrow(folder_ / L"work") + "\ntwo words\na \"quote\"\n\xe6\xbc\xa2\n%TEMP%\n\nlast\\\n");
}

TEST_F(ShellExecution, ReturnsTheOppositeWithoutAFunction) {
    OptionObject options = ReportingProgram(L"reported", 0);
    EXPECT_EQ(Execute(options), "BOOL false") << "started";
    EXPECT_TRUE(PumpUntil([&] { return FileExists(folder_ / L"reported"); }));
    EXPECT_EQ(Execute(options.Set(L"path", L"missing.exe").Set(L"exitCallback", L"no function")),
              "BOOL true");
}

TEST_F(ShellExecution, FailsForMissingAndInvalidPrograms) {
    folder_.Write(L"text.exe", "no program");
    OptionObject options;
    options.Set(L"exitCallback", ended_);
    EXPECT_EQ(Execute(options), "BOOL false");
    for (const wchar_t* path : {L"missing.exe", L"text.exe"}) {
        const auto execute = [&] { EXPECT_EQ(Execute(options.Set(L"path", path)), "BOOL false"); };
        // The system shows an error message.
        AnswerDialogs(execute, [](HWND first) { EXPECT_TRUE(Press(first, IDOK)); });
    }
    EXPECT_EQ(Call(L"shellExecute", static_cast<IDispatch*>(nullptr)), "BOOL false");
    EXPECT_THAT(ended_->calls, IsEmpty());
}

TEST_F(HarmlessSystem, PromptsForElevation) {
    const auto ended = MakeCom<Recorder>();
    const auto execute = [&](const auto& requestAdmin, bool isWatched) {
        OptionObject options;
        options.Set(L"path", L"app.exe").Set(L"requestAdmin", requestAdmin);
        if (isWatched) options.Set(L"exitCallback", ended);
        return Call(L"shellExecute", static_cast<IDispatch*>(options));
    };
    EXPECT_EQ(execute(true, false), "BOOL false");
    EXPECT_EQ(execute(true, true), "BOOL true");
    EXPECT_EQ(execute(1, true), "BOOL true");
    calls_.isAdministrator = true;
    EXPECT_EQ(execute(true, true), "BOOL true");
    EXPECT_THAT(calls_.TakeCalls(), ElementsAre("open runas C:\\app.exe", "execute runas C:\\app.exe",
                                                "execute - C:\\app.exe", "execute - C:\\app.exe"));
    calls_.succeeds = false;
    EXPECT_EQ(execute(true, false), "BOOL true");
    for (const DWORD error : {ERROR_CANCELLED, ERROR_ACCESS_DENIED, ERROR_SUCCESS}) {
        calls_.error = error;
        EXPECT_EQ(execute(true, true), "BOOL false");
    }
    // Without a process to wait for, the workers call nothing and release their references.
    EXPECT_TRUE(PumpUntil([&] { return ended->AddRef(), ended->Release() == 1; }));
    EXPECT_EQ(ended->calls.size(), 0u);
}

}  // namespace
}  // namespace tarvik
