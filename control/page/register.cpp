#include "control/page/register.h"

#include <mshtml.h>
#include <ole2.h>

#include <optional>
#include <string>

#include "tarvik/status.h"
#include "base/text.h"
#include "control/engine/devtools.h"
#include "control/engine/engine_path.h"
#include "control/page/page_control.h"

namespace tarvik {

namespace {

// CLSID_HTMLDocument, which not every SDK's libraries hold.
constexpr CLSID kHtmlDocument = {
    0x25336920, 0x03F9, 0x11CF, {0x8F, 0xD0, 0x00, 0xAA, 0x00, 0x68, 0x6F, 0x13}};

class Factory : public ComObject<IClassFactory> {
  public:
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        return Guard([&] { return MakeCom<PageControl>()->QueryInterface(iid, out); });
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
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

void PageControlClass::Prelaunch() {
    // SystemShowsPages() takes as long as the start of the engine, so this is an estimate.
    if (IsPageControlRequested().value_or(IsWine())) DevTools::Prelaunch();
}

void PageControlClass::Shutdown() {
    DevTools::Shutdown();
}

PageControlClass::PageControlClass(MessageFilter filter) : initialized_(SUCCEEDED(OleInitialize(nullptr))) {
    DevTools::SetMessageFilter(filter);
    const auto requested = IsPageControlRequested();
    if (requested ? !*requested : SystemShowsPages()) {
        DevTools::Shutdown();
        return;
    }
    const auto factory = MakeCom<Factory>();
    CoRegisterClassObject(CLSID_WebBrowser, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                          &cookie_);
}

PageControlClass::~PageControlClass() {
    if (cookie_) CoRevokeClassObject(cookie_);
    DevTools::SetMessageFilter(nullptr);
    DevTools::Shutdown();
    if (initialized_) OleUninitialize();
}

}  // namespace tarvik
