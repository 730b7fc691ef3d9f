// Copies a tree of 2,000 files by `file.copyAsync`, from the call to `success`, and by a loop of CopyFileExW
// over a prepared list of the same files. The two alternate; prints milliseconds and the ratio.

#include <windows.h>
#include <ole2.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <vector>

#include "plugins/file/file_task.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

constexpr int kFolders = 50;
constexpr int kFilesInEach = 40;
constexpr size_t kFileSize = 8192;
constexpr int kRounds = 9;
constexpr double kTarget = 1.2;

void CreateTree(const TempFolder& parent) {
    const std::string content(kFileSize, 'x');
    for (int folder = 0; folder < kFolders; ++folder) {
        for (int file = 0; file < kFilesInEach; ++file) {
            parent.Write(L"tree\\folder" + std::to_wstring(folder) + L"\\file" + std::to_wstring(file),
                         content);
        }
    }
}

bool CopyInLoop(const WorkList& list, const std::wstring& src, const std::wstring& dest) {
    for (const WorkItem& item : list.items) {
        const std::wstring from = src + item.path, to = dest + item.path;
        const BOOL done = item.isFolder ? CreateDirectoryW(to.c_str(), nullptr)
                                        : CopyFileExW(from.c_str(), to.c_str(), nullptr, nullptr, nullptr,
                                                      COPY_FILE_FAIL_IF_EXISTS);
        if (!done) return false;
    }
    return true;
}

bool CopyByMember(const std::wstring& src, const std::wstring& dest) {
    const auto progress = MakeCom<Recorder>();
    const auto success = MakeCom<Recorder>();
    const auto fail = MakeCom<Recorder>();
    OptionObject options;
    options.Set(L"progress", progress).Set(L"success", success).Set(L"fail", fail);
    StartTask(static_cast<IDispatch*>(options), [&](const ScriptObject& given) {
        return std::make_unique<FileTask>(FileOperation::kCopy, src, dest, given);
    });
    PumpUntil([&] { return success->calls.size() + fail->calls.size() > 0; }, std::chrono::minutes(5));
    return !success->calls.empty();
}

double Milliseconds(const std::function<bool()>& copy) {
    const auto start = std::chrono::steady_clock::now();
    if (!copy()) return -1;
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> times) {
    std::ranges::sort(times);
    return times[times.size() / 2];
}

int Compare() {
    const TempFolder place;
    CreateTree(place);
    const std::wstring src = place / L"tree", dest = place / L"copied";
    const WorkList list = CollectWork(src, FileOperation::kCopy);
    std::vector<double> plain, ours;
    for (int round = 0; round < kRounds; ++round) {
        plain.push_back(Milliseconds([&] { return CopyInLoop(list, src, dest); }));
        std::filesystem::remove_all(dest);
        ours.push_back(Milliseconds([&] { return CopyByMember(src, dest); }));
        std::filesystem::remove_all(dest);
        if (plain.back() < 0 || ours.back() < 0) return std::puts("a copy failed"), 1;
    }
    const double ratio = Median(ours) / Median(plain);
    std::printf("%-34s %9s  median of %d, range\n", "copy of 2000 files", "ms", kRounds);
    for (const auto& [name, times] : {std::pair("CopyFileExW in a loop", &plain), {"copyAsync", &ours}}) {
        const auto [least, most] = std::ranges::minmax(*times);
        std::printf("%-34s %9.1f  %.1f to %.1f\n", name, Median(*times), least, most);
    }
    std::printf("%-34s %9.2f  target: at most %.1f: %s\n", "ratio", ratio, kTarget,
                ratio <= kTarget ? "met" : "MISSED");
    return 0;
}

}  // namespace
}  // namespace tarvik

int wmain() {
    OleInitialize(nullptr);
    const int result = tarvik::Compare();
    OleUninitialize();
    return result;
}
