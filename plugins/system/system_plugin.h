#pragma once

#include <optional>

#include "host/plugin_registry/plugin_base.h"
#include "plugins/system/command_args.h"
#include "plugins/system/system_calls.h"

#undef ShellExecute  // a macro of shellapi.h; handlers have the names of their members

namespace tarvik {

// `system`: environment, languages, privileges and command line; programs, shortcuts, the taskbar, libraries
// and the power state. Waiting for the exit of a program keeps the plug-in alive.
class CSystemPlugin : public TablePlugin<CSystemPlugin> {
  public:
    static constexpr char kClassName[] = "CSystemPlugin";
    static std::span<const Member<CSystemPlugin>> Members();

    explicit CSystemPlugin(SystemCalls& calls = DefaultSystemCalls()) : calls_(calls) {}

    // Publishes the special folders in the environment. Does not need the browser.
    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown* browser) override;
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

    template <UINT kHow>
    bool EndSession() {
        EnableShutdownPrivilege();
        return calls_.EndSession(kHow);
    }
    template <bool kHibernate>
    bool Suspend() {
        EnableShutdownPrivilege();
        return calls_.Suspend(kHibernate);
    }
    bool CloseMonitor();
    bool LockWorkStation();
    HRESULT Abort(const Call& call);

    Outcome ShellExecute(IDispatch* options);
    Outcome CreateShortcut(IDispatch* options);
    Variant ParseShortcut(BSTR path);
    std::optional<Bstr> GetEnvirVar(BSTR name);
    std::optional<Bstr> ExpandEnvirPath(BSTR text);
    Outcome PinToTaskbar(BSTR path);
    Outcome UnpinFromTaskbar(BSTR path);
    Outcome RegisterDll(BSTR path);
    Outcome UnregisterDll(BSTR path);

    bool GetAdministrator();
    HRESULT SetAdministrator(bool wanted);
    Variant GetCmdArgs();
    Variant GetSystemLanguage();
    Variant GetUserLanguage();
    bool IsX64Process();
    bool IsX64System();

  private:
    std::wstring PathOf(BSTR path) const;

    SystemCalls& calls_;
    ComPtr<TVK::ICore> core_;
    ComPtr<CCmdArgs> cmdArgs_;
};

}  // namespace tarvik
