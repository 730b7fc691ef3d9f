// soak_pages [WINDOWS [NAVIGATIONS]]: opens and closes windows of the page control, navigates, starts
// engines, and makes calls in one document, as many rounds as navigations. Fails if resources leak.
// (soak_walk closes windows at random.)

#include <windows.h>
#include <exdisp.h>

#include <cstdio>
#include <string>
#include <vector>

#include "atl/ax_window.h"
#include "atl/module.h"
#include "host/plugin_registry/plugin_base.h"
#include "host/web_browser.h"
#include "page_control/page/register.h"
#include "script/object.h"
#include "tarvik/com_ptr.h"
#include "tarvik/properties.h"
#include "tarvik/status.h"
#include "tarvik/variant.h"
#include "tests/soak/course.h"
#include "tests/soak/engine_census.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

constexpr auto kTimeout = std::chrono::seconds(30);

// Called by the members `ready` and `leave`, while the page waits.
struct SoakHandlers {
    std::function<void()> ready;
    std::function<void()> leave;
} soakHandlers;

// The plug-in `soak`: pages use its objects, and it calls functions of pages.
class SoakPlugin : public TablePlugin<SoakPlugin> {
  public:
    static constexpr char kClassName[] = "SoakPlugin";
    static std::span<const Member<SoakPlugin>> Members();

    // A native object, which the page stores.
    ComPtr<IDispatch> Make() { return MakeCom<CObject>(); }
    // Stores a script function until the next call, or until the window is destroyed.
    void Hold(IDispatch* function) { held_ = function; }
    HRESULT CallBack(IDispatch* function) {
        const Variant argument = Variant::Object(Make().Get());
        return CallScriptFunction(function, {&argument});
    }
    void Ready() {
        const ComPtr<IDispatch> held = held_;
        if (held) CallBack(held.Get());
        soakHandlers.ready();
    }
    void Leave() { soakHandlers.leave(); }

  private:
    ComPtr<IDispatch> held_;
};

constexpr Member<SoakPlugin> kMembers[] = {
    Method<&SoakPlugin::Make>(-10000, L"make"),    Method<&SoakPlugin::Hold>(-9999, L"hold"),
    Method<&SoakPlugin::CallBack>(-9998, L"call"), Method<&SoakPlugin::Ready>(-9997, L"ready"),
    Method<&SoakPlugin::Leave>(-9996, L"leave"),
};

std::span<const Member<SoakPlugin>> SoakPlugin::Members() {
    return kMembers;
}

[[maybe_unused]] const bool registered = RegisterBuiltIn<SoakPlugin>(L"soak", TVK::kRetainedPlugin);

// Script and native code hold objects of each other and call each other.
constexpr const char* kHead = R"page(<!doctype html><meta charset="utf-8"><title>Soak</title>
<p id="text"></p>
<script>
  console.showJsError = false;
  var soak = external.soak, kept = soak.make(), text = document.getElementById('text');
  kept.name = 'kept';
  kept.back = function () { return kept.name; };
  soak.hold(function (object) { object.page = window; text.textContent = kept.back(); });
  for (var i = 0; i < 5; i++) soak.call(function (object) { object.number = i; kept.last = object; });
  function ready() { soak.ready(); }
</script>
)page";

constexpr const char* kPlain = R"page(<script>
  external.window.title = 'Soak ' + external.window.width;
  external.window.show(true);
  onload = ready;
</script>)page";

constexpr const char* kWithFrame = R"page(<iframe src="inner.html"></iframe>)page";
constexpr const char* kInner = R"page(<!doctype html><script>
  var kept = external.soak.make();
  kept.text = document.title + external.window.title;
  parent.ready();
</script>)page";

// The next page is opened during a native call of this one.
constexpr const char* kWaiting = R"page(<script>onload = function () { soak.leave(); }; </script>)page";

constexpr const char* kWithTimers = R"page(<script>
  for (var i = 0; i < 5; i++) setInterval(function () { kept.title = external.window.title; }, i);
  setTimeout(function () { throw new Error('meant to fail'); });
  setTimeout(function () { external.soak.call({}); });
  setTimeout(ready, 30);
</script>)page";

// Makes calls for ever.
constexpr const char* kCalling = R"page(<script>
  setInterval(function () {
    for (var i = 0; i < 10; i++) {
      soak.make().text = external.window.title;
      soak.call(function (object) { object.number = i; });
    }
    ready();
  }, 1);
</script>)page";

class Window {
  public:
    explicit Window(const std::wstring& page)
        : browser_(MakeCom<CWebBrowser>()), window_(browser_->CreateHidden(nullptr, page.c_str())) {}
    ~Window() {
        DestroyWindow(window_);
        PumpOnce();
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void Navigate(const std::wstring& page) const {
        const auto browser = Query<IWebBrowser2>(AtlAxGetControl(window_).Get());
        Variant url = Variant::Text(page), none;
        ThrowIfFailed(browser->Navigate2(&url, &none, &none, &none, &none));
    }

  private:
    ComPtr<CWebBrowser> browser_;
    HWND window_;
};

class Soak {
  public:
    Soak() { appModule.AddMessageLoop(&loop_); }
    ~Soak() { appModule.RemoveMessageLoop(); }

    bool Run(int windows, int navigations) {
        soakHandlers = {[this] { ++ready_; }, [this] { OpenNext(); }};
        const bool besideOne = RunBesideOne(windows, navigations);
        const bool alone = RunAlone(std::max(4, windows / 10));
        return IsEngineGone() && besideOne && alone;
    }

  private:
    bool RunBesideOne(int windows, int navigations) {
        const Window first(pages_[0]);
        first_ = &first;
        if (!Becomes([this] { return ready_ == 1; })) return false;
        census_.WatchPage(control_.Engine());
        Course opening("windows", [this] { return census_.Now(); });
        Course leaving("navigations", [this] { return census_.Now(); });
        Course calling("rounds", [this] { return census_.Now(); });
        bool good = opening.Run(8, windows, [this](int) { return OpenAndClose(); });
        good &= leaving.Run(10, navigations, [this](int) { return OpenNext(); });
        first.Navigate(calling_);
        good &= calling.Run(20, navigations, [this](int) { return WaitForReady(); });
        census_.ForgetPage();
        first_ = nullptr;
        return good;
    }

    // Opens single windows, so that each starts and ends its own engine.
    bool RunAlone(int windows) {
        Course course("engines", [this] { return census_.Now(); });
        return course.Run(2, windows, [this](int) {
            census_.NoteStart();
            return OpenAndClose();
        });
    }

    bool IsEngineGone() {
        if (PumpUntil([this] { return census_.Left().empty(); }, kTimeout)) return true;
        return std::printf("left of the engine: %s\n", census_.Left().c_str()), false;
    }

    bool OpenAndClose() {
        ready_ = 0;
        const Window window(pages_[0]);
        return Becomes([this] { return ready_ == 1; });
    }

    bool OpenNext() {
        next_ = (next_ + 1) % pages_.size();
        first_->Navigate(pages_[next_]);
        return WaitForReady();
    }

    bool WaitForReady() {
        return Becomes([this, before = ready_] { return ready_ > before; });
    }

    static bool Becomes(const std::function<bool()>& condition, int line = __builtin_LINE()) {
        if (PumpUntil(condition, kTimeout)) return true;
        return std::printf("timeout in line %d\n", line), false;
    }

    std::wstring Write(const wchar_t* name, const char* body) const {
        return folder_.Write(name, std::string(kHead) + body);
    }

    CMessageLoop loop_;
    const TempFolder folder_;
    const std::wstring inner_ = folder_.Write(L"inner.html", kInner);
    const std::vector<std::wstring> pages_ = {
        Write(L"plain.html", kPlain),
        Write(L"frame.html", kWithFrame),
        Write(L"waiting.html", kWaiting),
        Write(L"timers.html", kWithTimers),
    };
    const std::wstring calling_ = Write(L"calling.html", kCalling);
    EngineCensus census_;
    const PageControlClass control_;
    const Window* first_ = nullptr;
    size_t next_ = 0;
    int ready_ = 0;
};

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    SetEnvironmentVariableW(L"TARVIK_ENGINE", L"chromium");
    const int windows = argc > 1 ? _wtoi(argv[1]) : 100;
    const int navigations = argc > 2 ? _wtoi(argv[2]) : 1000;
    bool good = false;
    const HRESULT status = tarvik::Guard([&] { good = tarvik::Soak().Run(windows, navigations); });
    if (FAILED(status)) std::printf("failed with 0x%08lX\n", static_cast<unsigned long>(status));
    return good ? 0 : 1;
}
