// page_calls FOLDER: measures calls between a page and native objects on the page control. The page
// FOLDER\resource\index.html measures and reports.

#include <windows.h>

#include <cstdio>
#include <string>

#include "atl/module.h"
#include "host/plugin_registry/plugin_base.h"
#include "host/web_browser.h"
#include "page_control/page/register.h"
#include "tarvik/com_ptr.h"
#include "tarvik/properties.h"
#include "tarvik/text.h"

namespace tarvik {
namespace {

// The plug-in `bench`, to which the page reports.
class BenchPlugin : public TablePlugin<BenchPlugin> {
  public:
    static constexpr char kClassName[] = "BenchPlugin";
    static std::span<const Member<BenchPlugin>> Members();

    HRESULT Report(const Call& call) {
        BSTR name = nullptr;
        if (!FromVariant(call.At(0), name)) return E_INVALIDARG;
        std::printf("%-44s", Narrow(Bstr::View(name)).c_str());
        for (size_t i = 1; i < call.Count(); ++i) {
            Variant number = Variant::Copy(call.At(i));
            std::printf(" %8.3f", number.ChangeType(VT_R8) ? number.dblVal : 0.0);
        }
        std::printf("\n");
        return S_OK;
    }
    Bstr Echo(BSTR text) { return Bstr(Bstr::View(text)); }
    HRESULT CallBack(IDispatch* function) { return CallScriptFunction(function); }
    void Done() { PostQuitMessage(0); }
};

constexpr Member<BenchPlugin> kMembers[] = {
    RawMethod<&BenchPlugin::Report, 2, 4>(L"report", -10000),
    Method<&BenchPlugin::Echo>(L"echo", -9999),
    Method<&BenchPlugin::CallBack>(L"call", -9998),
    Method<&BenchPlugin::Done>(L"done", -9997),
};

[[maybe_unused]] const bool registered = RegisterBuiltIn<BenchPlugin>(L"bench", TVK::kRetainedPlugin);

}  // namespace

std::span<const Member<BenchPlugin>> BenchPlugin::Members() {
    return kMembers;
}

}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    if (argc < 2 || !SetCurrentDirectoryW(argv[1])) return std::printf("usage: page_calls FOLDER\n"), 2;
    SetEnvironmentVariableW(L"TARVIK_ENGINE", L"chromium");
    std::printf("%-44s %8s %8s  (ms)\n", "on the page control", "median", "95 %");
    const tarvik::PageControlClass control;
    tarvik::CMessageLoop loop;
    tarvik::appModule.AddMessageLoop(&loop);
    const auto browser = tarvik::MakeCom<tarvik::CWebBrowser>();
    const HWND window = browser->CreateHidden(nullptr, nullptr);
    if (!window) return std::printf("no page\n"), 1;
    const int result = loop.Run();
    DestroyWindow(window);
    tarvik::appModule.RemoveMessageLoop();
    return result;
}
