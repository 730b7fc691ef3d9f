#include "page_control/page/register.h"

#include <mshtml.h>
#include <ole2.h>

#include <optional>
#include <string>

#include "base/path.h"
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

// The choice of TARVIK_ENGINE, if any.
std::optional<bool> IsPageControlRequested() {
    const std::wstring engine =
        ReadPath([](wchar_t* buffer) { GetEnvironmentVariableW(L"TARVIK_ENGINE", buffer, kPathLength); });
    if (_wcsicmp(engine.c_str(), L"chromium") == 0) return true;
    if (_wcsicmp(engine.c_str(), L"mshtml") == 0) return false;
    return std::nullopt;
}

}  // namespace

void PageControlClass::Prelaunch(SharedEngine& engine) {
    // SystemShowsPages() takes as long as the start of the engine, so this is an estimate.
    if (IsPageControlRequested().value_or(IsWine())) engine.Prelaunch();
}

PageControlClass::PageControlClass(std::shared_ptr<SharedEngine> engine, DevTools::MessageFilter filter)
    : engine_(std::move(engine)), initialized_(SUCCEEDED(OleInitialize(nullptr))) {
    engine_->SetMessageFilter(std::move(filter));
    const auto requested = IsPageControlRequested();
    if (requested ? !*requested : SystemShowsPages()) {
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
