// A download of 200 MB from a server of this process: by `downloadToFile`, with a `progress` function and
// without one, and by the loop that a person would write with WinINet. All run in turn; prints rates and
// ratios. With a file's name, `download FILE`, it then writes the server's address there and goes on to serve
// until the file is removed, so that other programs can be measured.

#include "tests/support/web_server.h"

#include <ole2.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

#include "tarvik/owners.h"
#include "tarvik/text.h"
#include "plugins/http/download_task.h"
#include "plugins/http/web_response.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

constexpr int kPieces = 3200;
constexpr DWORD kPiece = 62'500;
constexpr int kRounds = 7;
constexpr double kAim = 1.3;

void Serve(const WebExchange& exchange) {
    static const std::string piece(kPiece, 'x');
    exchange.Send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(kPieces * kPiece) + "\r\n\r\n");
    for (int i = 0; i < kPieces && exchange.Send(piece); ++i) {
    }
}

class Downloading {
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
        return done == kPieces * kPiece;
    }
    bool Untold() const { return Run({}); }
    bool Told() const { return Run(OptionObject().Set(L"progress", MakeCom<Recorder>())); }

    const WebServer& Server() const { return server_; }

  private:
    bool Run(const OptionObject& options) const {
        const auto success = MakeCom<Recorder>(), fail = MakeCom<Recorder>();
        options.Set(L"success", success).Set(L"fail", fail);
        StartTask(options, [&](const Options& given) {
            return std::make_unique<DownloadTask>(server_.Url(), path_, given);
        });
        PumpUntil([&] { return success->calls.size() + fail->calls.size() > 0; }, std::chrono::minutes(5));
        return !success->calls.empty();
    }

    const WebServer server_{Serve};
    const TempFolder folder_;
    const std::wstring path_ = folder_ / L"large";
};

struct Way {
    const char* name;
    bool (Downloading::*run)() const;
    std::array<double, kRounds> spent = {};  // seconds
};

bool Compare(const Downloading& downloading) {
    Way ways[] = {{"a loop of InternetReadFile", &Downloading::ByHand},
                  {"downloadToFile", &Downloading::Untold},
                  {"downloadToFile with progress", &Downloading::Told}};
    for (int round = 0; round < kRounds; ++round) {
        for (Way& way : ways) {
            const auto start = std::chrono::steady_clock::now();
            if (!(downloading.*way.run)()) return std::printf("%s failed\n", way.name), false;
            way.spent[round] =
                std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        }
    }
    std::printf("%-34s %9s  median of %d, best\n", "download of 200 MB", "MB/s", kRounds);
    for (Way& way : ways) {
        std::ranges::sort(way.spent);
        std::printf("%-34s %9.0f  %.0f\n", way.name, 200 / way.spent[kRounds / 2], 200 / way.spent[0]);
    }
    const double ratio = ways[1].spent[kRounds / 2] / ways[0].spent[kRounds / 2];
    std::printf("%-34s %9.2f  aim: at most %.1f: %s\n", "ratio of the times", ratio, kAim,
                ratio <= kAim ? "good" : "MISSED");
    std::printf("%-34s %9.2f\n", "ratio with progress",
                ways[2].spent[kRounds / 2] / ways[0].spent[kRounds / 2]);
    std::fflush(stdout);
    return true;
}

void ServeOthers(const WebServer& server, const wchar_t* file) {
    const std::string address = Narrow(server.Url());
    DWORD written = 0;
    {
        const UniqueHandle told(CreateFileW(file, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        WriteFile(told.Get(), address.data(), static_cast<DWORD>(address.size()), &written, nullptr);
    }
    WaitFor([&] { return !FileExists(file); }, 300'000);
}

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    OleInitialize(nullptr);
    bool good = false;
    {
        const tarvik::Downloading downloading;
        good = tarvik::Compare(downloading);
        if (argc > 1) tarvik::ServeOthers(downloading.Server(), argv[1]);
    }
    OleUninitialize();
    return good ? 0 : 1;
}
