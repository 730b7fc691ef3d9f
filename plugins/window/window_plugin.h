#pragma once

#include <shobjidl.h>

#include <optional>

#include "host/plugin_registry/plugin_base.h"
#include "plugins/window/browser_subclass.h"
#include "plugins/window/drag_sink.h"
#include "plugins/window/main_subclass.h"
#include "plugins/window/msg_dispatch.h"
#include "plugins/window/name_claim.h"
#include "plugins/window/window_frame.h"

namespace tarvik {

// `window`: the page's top-level window. The plug-in lives until the window's last message; callbacks, menu,
// limits, shape and style survive a navigation.
class CWindowPlugin : public TablePlugin<CWindowPlugin> {
  public:
    ~CWindowPlugin() override;

    static constexpr char kClassName[] = "CWindowPlugin";
    static constexpr bool kTracesCalls = true;
    static std::span<const Member<CWindowPlugin>> Members();

    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown* browser) override;
    STDMETHODIMP OnDocumentComplete(void*) override;

    // Positions and sizes are in pixels of the screen and include the frame.
    bool Show(bool visible);
    bool Close();
    HRESULT Quit(std::optional<AnyInt32> code);
    bool Minimize();
    bool CenterWindow();
    bool SetTaskbarProgress(CoercedInt completed, CoercedInt total);
    bool SetTaskbarProgressState(BSTR state);
    bool IsSupportTaskbarProgress();
    HRESULT SelectFile(const Call& call);
    HRESULT SelectFolder(const Call& call);
    bool MessageBox(IDispatch* options);
    bool IsUniqueWindow(BSTR name);
    bool ShowExistedWindow();
    bool IsVisible();
    bool IsForeWindow();
    bool SetPosition(CoercedInt x, CoercedInt y, CoercedInt width, CoercedInt height);

    int GetWidth();
    bool SetWidth(CoercedInt width);
    int GetHeight();
    bool SetHeight(CoercedInt height);
    int GetLeft();
    bool SetLeft(CoercedInt left);
    int GetTop();
    bool SetTop(CoercedInt top);
    int GetWorkAreaWidth();
    int GetWorkAreaHeight();
    Bstr GetTitle();
    HRESULT SetTitle(BSTR title);
    ComPtr<IDispatch> GetMenu();
    HRESULT SetMenu(const ComPtr<IDispatch>& menu);
    ComPtr<IDispatch> GetMsg();

    template <DWORD kBits>
    bool SetStyle(bool on) {
        ChangeWindowStyle(window_, kBits, on);
        return true;
    }
    bool SetCaption(bool visible);
    bool SetTopMost(bool topMost);
    template <ULONG TrackLimits::*kLimit>
    HRESULT SetLimit(CoercedInt pixels) {
        if (pixels.value == 0) return E_INVALIDARG;
        main_.Limits().*kLimit = static_cast<ULONG>(pixels.value);
        return S_OK;
    }
    HRESULT SetResizable(bool resizable);
    HRESULT ShapeImage(BSTR path);
    template <WindowEvent kEvent>
    HRESULT SetCallback(IDispatch* function) {
        main_.SetCallback(kEvent, function);
        return S_OK;
    }

  private:
    RECT Rectangle() const;
    bool Resize(LONG width, LONG height);
    bool Move(LONG left, LONG top);

    ComPtr<TVK::ICore> core_;
    ComPtr<IWebBrowser2> browser_;
    HWND window_ = nullptr;
    CBrowserSubclassWindow server_;
    CMainSubclassWindow main_;
    WindowFrame frame_{main_, server_};
    ComPtr<CDragSink> dragSink_;
    ElementConnection bodyEvents_;
    ComPtr<CMsgDispatch> msg_;
    ComPtr<ITaskbarList3> taskbar_;
    NameClaim claim_;
};

}  // namespace tarvik
