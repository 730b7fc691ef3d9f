#pragma once

#include <optional>

#include "host/registry/plugin_base.h"

namespace tarvik {

// `window`: the top-level window that a page lives in.
class CWindowPlugin : public WindowPlugin<CWindowPlugin> {
  public:
    static constexpr char kClassName[] = "CWindowPlugin";
    static std::span<const Member<CWindowPlugin>> Members();

    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown* browser) override;

    bool Show(bool visible);
    bool Close();
    HRESULT Quit(std::optional<ExactInt> code);
    HRESULT SelectFile(const Call& call);
    HRESULT SelectFolder(const Call& call);
    bool MessageBox(IDispatch* options);
    bool IsVisible();

    Integer GetWidth();
    bool SetWidth(LooseInt width);
    Integer GetHeight();
    bool SetHeight(LooseInt height);
    Bstr GetTitle();
    HRESULT SetTitle(BSTR title);

  private:
    RECT Rectangle() const;
    bool Resize(LONG width, LONG height);

    HWND window_ = nullptr;
};

}  // namespace tarvik
