#pragma once

#include <optional>

#include "plugins/window/main_subclass.h"
#include "script/dispatch.h"

namespace tarvik {

// `window.msg`: messages to and from other windows, of this process and of others. A window receives for
// every identifier that it ever had; all windows of one identifier get a message for it.
class CMsgDispatch : public TableDispatch<CMsgDispatch> {
  public:
    static constexpr char kClassName[] = "CMsgDispatch";
    static std::span<const Member<CMsgDispatch>> Members();

    explicit CMsgDispatch(CMainSubclassWindow& window) : window_(&window) {}
    // The window's part has gone: from now on every call fails with E_FAIL.
    void Detach() { window_ = nullptr; }

    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

    // Names end at their first zero.
    Outcome RegisterMsg(BSTR name, IDispatch* function, std::optional<AnyValue> context);
    bool UnregisterMsg(BSTR name);
    // A payload that is no string counts as none. An empty one does, too.
    bool SendMsg(CoercedText identifier, CoercedText name, std::optional<AnyValue> payload);
    Bstr GetUniqueId();
    HRESULT SetUniqueId(CoercedText identifier);

  private:
    CMainSubclassWindow& Window() const;

    CMainSubclassWindow* window_;
};

}  // namespace tarvik
