#pragma once

#include <optional>

#include "host/plugin_registry/plugin_base.h"
#include "plugins/system/command_args.h"
#include "plugins/system/system_calls.h"

#undef ShellExecute  // of the system's headers: handlers have their members' names

namespace tarvik {

// `system`: environment, languages, rights and command line; programs, shortcuts, the task bar, libraries and
// the power state. A program that is watched for its end keeps the plug-in alive until then.
class CSystemPlugin : public TablePlugin<CSystemPlugin> {
  public:
    static constexpr char kClassName[] = "CSystemPlugin";
    static std::span<const Member<CSystemPlugin>> Members();

    explicit CSystemPlugin(SystemCalls& calls = RealSystemCalls()) : calls_(calls) {}

    // Publishes the special folders in the process's environment; the browser is not needed.
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
