#include "plugins/window/composition.h"

#include <uxtheme.h>

#include "base/module_function.h"

namespace tarvik {

namespace {

class SystemComposition : public Composition {
  public:
    bool IsEnabled() const override {
        BOOL enabled = FALSE;
        return isEnabled_ && extend_ && SUCCEEDED(isEnabled_(&enabled)) && enabled;
    }
    void ExtendFrame(HWND window, int margin) const override {
        const MARGINS margins = {margin, margin, margin, margin};
        extend_(window, &margins);
    }

  private:
    using IsEnabledFunction = HRESULT WINAPI(BOOL*);
    using ExtendFunction = HRESULT WINAPI(HWND, const MARGINS*);
    IsEnabledFunction* isEnabled_ = FindFunction<IsEnabledFunction>(L"Dwmapi.dll", "DwmIsCompositionEnabled");
    ExtendFunction* extend_ = FindFunction<ExtendFunction>(L"Dwmapi.dll", "DwmExtendFrameIntoClientArea");
};

}  // namespace

const Composition& Composition::System() {
    static const SystemComposition system;
    return system;
}

}  // namespace tarvik
