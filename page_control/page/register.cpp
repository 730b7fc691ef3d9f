#include "page_control/page/register.h"

#include <mshtml.h>
#include <ole2.h>

#include <string_view>

#include "base/engine_choice.h"
#include "base/program_resource.h"
#include "page_control/engine/engine_path.h"
#include "page_control/page/page_control.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

// CLSID_HTMLDocument, which not every SDK's libraries contain.
constexpr CLSID kHtmlDocument = {
    0x25336920, 0x03F9, 0x11CF, {0x8F, 0xD0, 0x00, 0xAA, 0x00, 0x68, 0x6F, 0x13}};

class Factory : public ComObject<IClassFactory> {
  public:
    explicit Factory(std::shared_ptr<SharedEngine> engine) : engine_(std::move(engine)) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        return Guard([&] { return MakeCom<PageControl>(engine_)->QueryInterface(iid, out); });
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

  private:
    const std::shared_ptr<SharedEngine> engine_;
};

// A system without a document class can create its control, but that shows no page.
bool SystemShowsPages() {
    ComPtr<IUnknown> document;
    return SUCCEEDED(CoCreateInstance(kHtmlDocument, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                      reinterpret_cast<void**>(document.GetAddressOf())));
}

// The choice of the environment variable TARVIK_ENGINE, or else that of the application's author. `mshtml` is
// the variable's other name for the system's engine.
EngineChoice RequestedEngine() {
    char name[20] = {};
    const DWORD length = GetEnvironmentVariableA("TARVIK_ENGINE", name, sizeof name);
    const std::string_view given(CharLowerA(name), length < sizeof name ? length : 0);
    if (given == "mshtml") return EngineChoice::kSystem;
    const auto authors = ParseEngine(ResourceBytes(nullptr, MAKEINTRESOURCEW(kEngineResource), RT_RCDATA));
    return ParseEngine(given).value_or(authors.value_or(EngineChoice::kEither));
}

// Whether the page control shows the pages. `whereEither` decides if either engine may.
bool UsesPageControl(bool (*whereEither)()) {
    const EngineChoice requested = RequestedEngine();
    return requested == EngineChoice::kEither ? whereEither() : requested == EngineChoice::kChromium;
}

}  // namespace

void PageControlClass::Prelaunch(SharedEngine& engine) {
    // SystemShowsPages() takes as long as the start of the engine, so this is an estimate.
    if (UsesPageControl(IsWine)) engine.Prelaunch();
}

PageControlClass::PageControlClass(std::shared_ptr<SharedEngine> engine, DevTools::MessageFilter filter)
    : engine_(std::move(engine)), initialized_(SUCCEEDED(OleInitialize(nullptr))) {
    engine_->SetMessageFilter(std::move(filter));
    if (!UsesPageControl([] { return !SystemShowsPages(); })) {
        engine_->Shutdown();
        return;
    }
    const auto factory = MakeCom<Factory>(engine_);
    CoRegisterClassObject(CLSID_WebBrowser, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                          &cookie_);
}

PageControlClass::~PageControlClass() {
    if (cookie_) CoRevokeClassObject(cookie_);
    engine_->SetMessageFilter(nullptr);
    engine_->Shutdown();
    if (initialized_) OleUninitialize();
}

}  // namespace tarvik
