#include "tests/soak/walks.h"

#include <array>
#include <cstdio>
#include <optional>
#include <random>
#include <string>

#include "atl/module.h"
#include "base/com_ptr.h"
#include "base/status.h"
#include "control/page/register.h"
#include "host/registry/plugin_base.h"
#include "host/web_browser.h"
#include "tests/soak/course.h"
#include "tests/soak/engine_census.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {

namespace {

constexpr auto kPatience = std::chrono::seconds(60);
constexpr UINT kPause = 50;
constexpr int kStepsOfAWalk = 40;

std::mt19937 chance;
int steps = 0;

// `external.walk`
class WalkPlugin : public TablePlugin<WalkPlugin> {
  public:
    static constexpr char kClassName[] = "WalkPlugin";
    static std::span<const Member<WalkPlugin>> Members();

    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown*) override {
        window_ = core ? core->GetWindowHandle() : nullptr;
        return S_OK;
    }
    Integer Random(ExactInt below) { return {tarvik::Random(below.value)}; }
    void Step() { ++steps; }
    void Strike() { tarvik::Strike(window_); }
    void Send(ExactInt message, ExactInt first, ExactInt second) {
        SendMessageW(window_, static_cast<UINT>(message.value), static_cast<WPARAM>(first.value),
                     second.value);
    }

  private:
    HWND window_ = nullptr;
};

constexpr Member<WalkPlugin> kMembers[] = {
    Method<&WalkPlugin::Random>(-10000, L"random"),
    Method<&WalkPlugin::Step>(-9999, L"step"),
    Method<&WalkPlugin::Strike>(-9998, L"strike"),
    Method<&WalkPlugin::Send>(-9997, L"send"),
};

std::span<const Member<WalkPlugin>> WalkPlugin::Members() {
    return kMembers;
}

[[maybe_unused]] const bool registered = RegisterBuiltIn<WalkPlugin>(L"walk", TVK::kRetainedPlugin);

constexpr const char* kHead =
    R"page(<!doctype html><title>Walk</title><body><p dragWindow=true>walk</p><script>
  console.showJsError = false;
  var w = external.window, walk = external.walk, depth = 0;
  function any(list) { return list[walk.random(list.length)]; }
  function coin() { return walk.random(2) === 1; }
  function handler() { return coin() && function () { act(); return coin(); }; }
  function act() {
    if (depth > 3) return;
    ++depth;
    try { any(acts)(); } finally { --depth; }
  }
)page";

constexpr const char* kTail = R"page(
  setInterval(function () { walk.step(); act(); }, 1);
</script>)page";

class Walker {
  public:
    explicit Walker(const std::wstring& page)
        : browser_(MakeCom<CWebBrowser>()), window_(browser_->CreateHidden(nullptr, page.c_str())) {}
    ~Walker() {
        if (IsOpen()) DestroyWindow(window_);
    }
    Walker(const Walker&) = delete;
    Walker& operator=(const Walker&) = delete;

    bool IsOpen() const { return browser_->GetWindowHandle() != nullptr; }

  private:
    ComPtr<CWebBrowser> browser_;
    HWND window_;
};

class Walks {
  public:
    Walks(const char* acts, TIMERPROC person)
        : person_(SetTimer(nullptr, 0, kPause, person)),
          page_(folder_.Write(L"walk.html", std::string(kHead) + acts + kTail)) {
        appModule.AddMessageLoop(&loop_);
    }
    ~Walks() {
        appModule.RemoveMessageLoop();
        KillTimer(nullptr, person_);
    }

    bool Run(int walks) {
        const Walker quiet(folder_.Write(L"quiet.html", "<!doctype html>"));
        PumpUntil([] { return false; }, std::chrono::seconds(3));
        census_.WatchPage();
        Course course("walks", [this] { return Now(); });
        const bool good = course.Run(5, walks, [this](int) { return Walk(); });
        census_.ForgetPage();
        return good;
    }

  private:
    // Wine keeps device contexts, pictures and icons for as many dialogs and menus as have been open at a
    // time.
    Reading Now() {
        Reading reading = census_.Now();
        for (const auto& [what, rise] : {std::pair("GDI handles", 40.0), std::pair("USER handles", 5.0)}) {
            const auto count = static_cast<double>(reading.holdings.Take(what));
            reading.levels.push_back({what, count, rise});
        }
        return reading;
    }
    bool Walk() {
        const int end = steps + kStepsOfAWalk;
        std::array<std::optional<Walker>, 2> walkers;
        const auto isThrough = [&] {
            for (auto& walker : walkers) {
                if (!walker || !walker->IsOpen()) walker.emplace(page_);
            }
            return steps >= end;
        };
        if (PumpUntil(isThrough, kPatience)) return true;
        return std::printf("%d steps are missing\n", end - steps), false;
    }

    CMessageLoop loop_;
    const UINT_PTR person_;
    const TempFolder folder_;
    const std::wstring page_;
    EngineCensus census_;
    const PageControlClass control_;
};

}  // namespace

int Random(int below) {
    return static_cast<int>(chance() % static_cast<unsigned>(below));
}

void Strike(HWND window) {
    constexpr WPARAM kCommands[] = {SC_CLOSE, SC_MINIMIZE, SC_MAXIMIZE, SC_RESTORE};
    switch (Random(8)) {
        case 0:
            DestroyWindow(window);
            break;
        case 1:
            SendMessageW(window, WM_CLOSE, 0, 0);
            break;
        case 2:
            PostMessageW(window, WM_ENDSESSION, TRUE, 0);
            break;
        default:
            PostMessageW(window, WM_SYSCOMMAND, kCommands[Random(std::size(kCommands))], 0);
    }
}

int RunWalks(int argc, wchar_t** argv, const char* acts, TIMERPROC person) {
    SetEnvironmentVariableW(L"TARVIK_ENGINE", L"chromium");
    const int walks = argc > 1 ? _wtoi(argv[1]) : 100;
    chance.seed(argc > 2 ? static_cast<unsigned>(_wtoi(argv[2])) : 1);
    bool good = false;
    const HRESULT status = Guard([&] { good = Walks(acts, person).Run(walks); });
    if (FAILED(status)) std::printf("ended with 0x%08lX\n", static_cast<unsigned long>(status));
    return good ? 0 : 1;
}

}  // namespace tarvik
