#include "plugins/file/copy_progress.h"

#include "tarvik/text.h"
#include "tests/plugins/file/file_fixture.h"

namespace tarvik {
namespace {

// What the platform's copy routine would do with the answer.
DWORD Tell(void* progress, LONGLONG transferred) {
    LARGE_INTEGER size = {}, done = {};
    size.QuadPart = 1000;
    done.QuadPart = transferred;
    return OnCopyProgress(size, done, size, done, 1, CALLBACK_CHUNK_FINISHED, nullptr, nullptr, progress);
}

TEST(CopyProgress, AddsUpToTheTotalAndNotBeyond) {
    const TempFolder folder;
    const auto function = MakeCom<Recorder>();
    const Variant context = Variant::I4(7);
    CopyProgress progress(function.Get(), context, 5'000'000'000);
    EXPECT_EQ(Tell(&progress, 0), DWORD{PROGRESS_CONTINUE});
    progress.FileDone(folder.Write(L"five", "12345"));
    Tell(&progress, 4'000'000'000);
    Tell(&progress, 6'000'000'000);
    progress.FileDone(folder / L"that cannot be asked");
    Tell(&progress, 10);  // the largest number was added, and 5 + 10 - 1 are left of the sum
    EXPECT_THAT(function->Texts(), ElementsAre("R8 0.000000, R8 5000000000.000000, I4 7",
                                               "R8 4000000005.000000, R8 5000000000.000000, I4 7",
                                               "R8 5000000000.000000, R8 5000000000.000000, I4 7",
                                               "R8 14.000000, R8 5000000000.000000, I4 7"));
}

TEST(CopyProgress, EndsARunForFalseAndForAnError) {
    ScriptBench script(MakeCom<Recorder>().Get());
    const Variant context;
    for (const auto& [text, answer] : {std::pair(L"(function () { return 0; })", PROGRESS_CONTINUE),
                                       {L"(function () { return false; })", PROGRESS_CANCEL},
                                       {L"(function () { throw new Error('no'); })", PROGRESS_CANCEL}}) {
        const Variant function = script.Evaluate(text);
        CopyProgress progress(function.pdispVal, context, 1000);
        EXPECT_EQ(Tell(&progress, 999), static_cast<DWORD>(answer)) << Narrow(text);
    }
}

}  // namespace
}  // namespace tarvik
