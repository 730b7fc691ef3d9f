#include "plugins/file/copy_progress.h"

#include "tarvik/text.h"
#include "tests/plugins/file/file_fixture.h"

namespace tarvik {
namespace {

// Calls the progress routine as CopyFileExW does.
DWORD Report(void* progress, LONGLONG transferred) {
    LARGE_INTEGER size = {}, done = {};
    size.QuadPart = 1000;
    done.QuadPart = transferred;
    return OnCopyProgress(size, done, size, done, 1, CALLBACK_CHUNK_FINISHED, nullptr, nullptr, progress);
}

TEST(CopyProgress, ReportsAtMostTheTotal) {
    const TempFolder folder;
    const auto function = MakeCom<Recorder>();
    const Variant context = Variant::I4(7);
    CopyProgress progress(function.Get(), context, 5'000'000'000);
    EXPECT_EQ(Report(&progress, 0), DWORD{PROGRESS_CONTINUE});
    progress.FileFinished(folder.Write(L"five", "12345"));
    Report(&progress, 4'000'000'000);
    Report(&progress, 6'000'000'000);
    progress.FileFinished(folder / L"missing");
    Report(&progress, 10);  // the missing file added the largest number, so that 5 + 10 - 1 is reported
    EXPECT_THAT(function->Texts(), ElementsAre("R8 0.000000, R8 5000000000.000000, I4 7",
                                               "R8 4000000005.000000, R8 5000000000.000000, I4 7",
                                               "R8 5000000000.000000, R8 5000000000.000000, I4 7",
                                               "R8 14.000000, R8 5000000000.000000, I4 7"));
}

TEST(CopyProgress, CancelsForFalseAndForAnError) {
    ScriptHost script(MakeCom<Recorder>().Get());
    const Variant context;
    for (const auto& [text, answer] : {std::pair(L"(function () { return 0; })", PROGRESS_CONTINUE),
                                       {L"(function () { return false; })", PROGRESS_CANCEL},
                                       {L"(function () { throw new Error('no'); })", PROGRESS_CANCEL}}) {
        const Variant function = script.Evaluate(text);
        CopyProgress progress(function.pdispVal, context, 1000);
        EXPECT_EQ(Report(&progress, 999), static_cast<DWORD>(answer)) << Narrow(text);
    }
}

}  // namespace
}  // namespace tarvik
