#pragma once

#include <optional>

#include "plugins/window/main_subclass.h"
#include "script/dispatch.h"

namespace tarvik {

// `window.msg`: messages to and from other windows of any process. A window receives the messages for every
// identifier that it ever had; several windows may have the same identifier.
class CMsgDispatch : public TableDispatch<CMsgDispatch> {
  public:
    static constexpr char kClassName[] = "CMsgDispatch";
    static std::span<const Member<CMsgDispatch>> Members();

    explicit CMsgDispatch(CMainSubclassWindow& window) : window_(&window) {}
    // The window has been destroyed: all further calls return E_FAIL.
    void Detach() { window_ = nullptr; }

    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

    // Names end at the first NUL.
    Outcome RegisterMsg(BSTR name, IDispatch* function, std::optional<AnyValue> context);
    bool UnregisterMsg(BSTR name);
    // A payload that is empty or not a string counts as absent.
    bool SendMsg(CoercedText identifier, CoercedText name, std::optional<AnyValue> payload);
    Bstr GetUniqueId();
    HRESULT SetUniqueId(CoercedText identifier);

  private:
    CMainSubclassWindow& Window() const;

    CMainSubclassWindow* window_;
};

}  // namespace tarvik
