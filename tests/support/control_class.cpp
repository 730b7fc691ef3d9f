#include "tests/support/control_class.h"

#include <exdisp.h>
#include <objbase.h>

#include <gtest/gtest.h>

#include "base/com_object.h"

namespace tarvik {

namespace {

class Factory : public ComObject<IClassFactory> {
  public:
    explicit Factory(ControlClass::Make make) : make_(std::move(make)) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
        *out = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        const auto made = make_();
        return made ? made->QueryInterface(iid, out) : E_OUTOFMEMORY;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

  private:
    ControlClass::Make make_;
};

}  // namespace

ControlClass::ControlClass(Make make) {
    EXPECT_GE(CoGetClassObject(CLSID_WebBrowser, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                               reinterpret_cast<void**>(system_.GetAddressOf())),
              0);
    const auto factory = MakeCom<Factory>(std::move(make));
    EXPECT_GE(CoRegisterClassObject(CLSID_WebBrowser, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                    &cookie_),
              0);
}

ControlClass::~ControlClass() {
    CoRevokeClassObject(cookie_);
}

ComPtr<IUnknown> ControlClass::SystemControl() const {
    ComPtr<IUnknown> control;
    system_->CreateInstance(nullptr, IID_IUnknown, reinterpret_cast<void**>(control.GetAddressOf()));
    return control;
}

}  // namespace tarvik
