#pragma once

#include "plugins/system/system_plugin.h"
#include "tarvik/text.h"
#include "tests/plugins/support/page_core.h"

namespace tarvik {

// Records the calls and does nothing.
class HarmlessCalls : public SystemCalls {
  public:
    bool IsAdministrator() override { return isAdministrator; }
    bool EndSession(UINT how) override { return Record("end " + std::to_string(how) + Privilege()); }
    bool Suspend(bool hibernate) override {
        return Record((hibernate ? "hibernate" : "suspend") + Privilege());
    }
    bool LockScreen() override { return Record("lock"); }
    void TurnOffMonitor() override { Record("monitor off"); }
    void QuitProgram() override { Record("quit"); }
    bool Open(const wchar_t* verb, const wchar_t* file, const wchar_t*, const wchar_t*) override {
        return Record("open " + Start(verb, file));
    }
    bool Execute(SHELLEXECUTEINFOW& info) override {
        return Record("execute " + Start(info.lpVerb, info.lpFile));
    }

    std::vector<std::string> TakeCalls() { return std::exchange(recorded_, {}); }

    bool isAdministrator = false;
    bool succeeds = true;
    DWORD error = 0;

  private:
    bool Record(std::string call) {
        recorded_.push_back(std::move(call));
        SetLastError(error);
        return succeeds;
    }
    static std::string Start(const wchar_t* verb, const wchar_t* file) {
        return (verb ? Narrow(verb) : "-") + " " + Narrow(file);
    }
    static std::string Privilege() {
        UniqueHandle token;
        OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.Receive());
        PRIVILEGE_SET wanted = {1, PRIVILEGE_SET_ALL_NECESSARY, {}};
        LookupPrivilegeValueW(nullptr, SE_SHUTDOWN_NAME, &wanted.Privilege[0].Luid);
        BOOL isOn = FALSE;
        PrivilegeCheck(token.Get(), &wanted, &isOn);
        return isOn ? ", privileged" : "";
    }

    std::vector<std::string> recorded_;
};

class System : ObjectCheck, public PluginOfPage {
  protected:
    System() : PluginOfPage(L"system") {}

    std::string Get(const wchar_t* member) const { return ResultText(GetMember(plugin_.Get(), member)); }

    static std::wstring Helper(const wchar_t* name) {
        return FullPath(ExecutablePath() + L"\\..\\helpers\\" + name);
    }
};

// The same with harmless system calls.
class HarmlessSystem : public testing::Test {
  protected:
    HarmlessSystem() {
        const auto core = MakeCom<PageCore>(L"C:\\page.html");
        EXPECT_EQ(plugin_->Initialize(core.Get(), nullptr), S_OK);
    }
    std::string Call(const wchar_t* member, auto&&... arguments) const {
        return CallText(plugin_.Get(), member, std::forward<decltype(arguments)>(arguments)...);
    }

    const ObjectCheck objectCheck_;
    HarmlessCalls calls_;
    const ComPtr<CSystemPlugin> plugin_ = MakeCom<CSystemPlugin>(calls_);
};

}  // namespace tarvik
