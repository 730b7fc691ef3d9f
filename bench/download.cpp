// Downloads 200 MB from a server in this process by `downloadToFile`, with and without a `progress` function,
// and by a hand-written loop over WinINet. They alternate; prints rates and ratios. With an argument,
// `download FILE`, it then writes the address of the server to the file and serves until the file is removed,
// so that other programs can be measured.

#include <ole2.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

#include "plugins/http/download_task.h"
#include "plugins/http/web_response.h"
#include "tarvik/owners.h"
#include "tarvik/text.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"
#include "tests/support/web_server.h"

namespace tarvik {
namespace {

constexpr int kChunks = 3200;
constexpr DWORD kChunkSize = 62'500;
constexpr int kRounds = 7;
constexpr double kTarget = 1.3;

void Serve(const WebExchange& exchange) {
    static const std::string chunk(kChunkSize, 'x');
    exchange.Send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(kChunks * kChunkSize) + "\r\n\r\n");
    for (int i = 0; i < kChunks && exchange.Send(chunk); ++i) {
    }
}

class Downloader {
  public:
    bool ByHand() const {
        const UniqueInternet session(InternetOpenW(L"bench", INTERNET_OPEN_TYPE_DIRECT, nullptr, nullptr, 0));
        const UniqueInternet request(InternetOpenUrlW(session.Get(), server_.Url().c_str(), nullptr, 0,
                                                      INTERNET_FLAG_RESYNCHRONIZE, 0));
        const UniqueHandle file(
            CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        std::string bytes(0x10000, '\0');
        DWORD count = 0, written = 0, done = 0;
        while (InternetReadFile(request.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count) &&
               count > 0) {
            WriteFile(file.Get(), bytes.data(), count, &written, nullptr);
            done += written;
        }
        return done == kChunks * kChunkSize;
    }
    bool ByMember() const { return Run({}); }
    bool WithProgress() const { return Run(OptionObject().Set(L"progress", MakeCom<Recorder>())); }

    const WebServer& Server() const { return server_; }

  private:
    bool Run(const OptionObject& options) const {
        const auto success = MakeCom<Recorder>(), fail = MakeCom<Recorder>();
        options.Set(L"success", success).Set(L"fail", fail);
        StartTask(static_cast<IDispatch*>(options), [&](const ScriptObject& given) {
            return std::make_unique<DownloadTask>(server_.Url(), path_, given);
        });
        PumpUntil([&] { return success->calls.size() + fail->calls.size() > 0; }, std::chrono::minutes(5));
        return !success->calls.empty();
    }

    const WebServer server_{Serve};
    const TempFolder folder_;
    const std::wstring path_ = folder_ / L"large";
};

struct Candidate {
    const char* name;
    bool (Downloader::*run)() const;
    std::array<double, kRounds> seconds = {};
};

bool Compare(const Downloader& downloader) {
    Candidate candidates[] = {{"a loop of InternetReadFile", &Downloader::ByHand},
                              {"downloadToFile", &Downloader::ByMember},
                              {"downloadToFile with progress", &Downloader::WithProgress}};
    for (int round = 0; round < kRounds; ++round) {
        for (Candidate& candidate : candidates) {
            const auto start = std::chrono::steady_clock::now();
            if (!(downloader.*candidate.run)()) return std::printf("%s failed\n", candidate.name), false;
            candidate.seconds[round] =
                std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        }
    }
    std::printf("%-34s %9s  median of %d, best\n", "download of 200 MB", "MB/s", kRounds);
    for (Candidate& candidate : candidates) {
        std::ranges::sort(candidate.seconds);
        std::printf("%-34s %9.0f  %.0f\n", candidate.name, 200 / candidate.seconds[kRounds / 2],
                    200 / candidate.seconds[0]);
    }
    const auto ratio = [&](int candidate) {
        return candidates[candidate].seconds[kRounds / 2] / candidates[0].seconds[kRounds / 2];
    };
    std::printf("%-34s %9.2f  target: at most %.1f: %s\n", "ratio of the times", ratio(1), kTarget,
                ratio(1) <= kTarget ? "met" : "MISSED");
    std::printf("%-34s %9.2f\n", "ratio with progress", ratio(2));
    std::fflush(stdout);
    return true;
}

void ServeOthers(const WebServer& server, const wchar_t* path) {
    const std::string address = Narrow(server.Url());
    DWORD written = 0;
    {
        const UniqueHandle file(CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        WriteFile(file.Get(), address.data(), static_cast<DWORD>(address.size()), &written, nullptr);
    }
    WaitFor([&] { return !FileExists(path); }, 300'000);
}

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    OleInitialize(nullptr);
    bool succeeded = false;
    {
        const tarvik::Downloader downloader;
        succeeded = tarvik::Compare(downloader);
        if (argc > 1) tarvik::ServeOthers(downloader.Server(), argv[1]);
    }
    OleUninitialize();
    return succeeded ? 0 : 1;
}
