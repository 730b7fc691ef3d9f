#pragma once

#include "plugins/system/system_plugin.h"
#include "tarvik/text.h"
#include "tests/plugins/support/page_core.h"

namespace tarvik {

// Does nothing and tells what would have been done.
class HarmlessCalls : public SystemCalls {
  public:
    bool IsAdministrator() override { return isAdministrator; }
    bool EndSession(UINT how) override { return Tell("end " + std::to_string(how) + Privilege()); }
    bool Suspend(bool hibernate) override {
        return Tell((hibernate ? "hibernate" : "suspend") + Privilege());
    }
    bool LockScreen() override { return Tell("lock"); }
    void TurnOffMonitor() override { Tell("monitor off"); }
    void QuitProgram() override { Tell("quit"); }
    bool Open(const wchar_t* verb, const wchar_t* file, const wchar_t*, const wchar_t*) override {
        return Tell("open " + Start(verb, file));
    }
    bool Execute(SHELLEXECUTEINFOW& info) override {
        return Tell("execute " + Start(info.lpVerb, info.lpFile));
    }

    std::vector<std::string> Told() { return std::exchange(told_, {}); }

    bool isAdministrator = false;
    bool works = true;
    DWORD error = 0;

  private:
    bool Tell(std::string what) {
        told_.push_back(std::move(what));
        SetLastError(error);
        return works;
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

    std::vector<std::string> told_;
};

// The plug-in of a page that lies in a folder of its own.
class System : public PluginsOfPage {
  protected:
    template <class... Args>
    std::string Ask(const wchar_t* member, Args&&... args) const {
        return ResultText(CallMember(plugin_.Get(), member, std::forward<Args>(args)...));
    }
    std::string Get(const wchar_t* member) const { return ResultText(GetMember(plugin_.Get(), member)); }

    static std::wstring Helper(const wchar_t* name) {
        return FullPath(ExecutablePath() + L"\\..\\helpers\\" + name);
    }

    const ObjectCheck noneIsLeft_;
    const ComPtr<IDispatch> plugin_ = Plugin(L"system");
};

// The same over calls that do nothing.
class HarmlessSystem : public testing::Test {
  protected:
    HarmlessSystem() {
        const auto core = MakeCom<PageCore>(L"C:\\page.html");
        EXPECT_EQ(plugin_->Initialize(core.Get(), nullptr), S_OK);
    }
    template <class... Args>
    std::string Ask(const wchar_t* member, Args&&... args) const {
        return ResultText(CallMember(plugin_.Get(), member, std::forward<Args>(args)...));
    }

    const ObjectCheck noneIsLeft_;
    HarmlessCalls calls_;
    const ComPtr<CSystemPlugin> plugin_ = MakeCom<CSystemPlugin>(calls_);
};

}  // namespace tarvik
