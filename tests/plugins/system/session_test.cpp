// Members that change the session or the machine, with harmless system calls.
#include "plugins/system/elevated_restart.h"
#include "tarvik/text.h"
#include "tests/plugins/system/system_fixture.h"

namespace tarvik {
namespace {

TEST_F(HarmlessSystem, ChangesThePowerState) {
    const std::pair<const wchar_t*, const char*> rows[] = {
        {L"reboot", "end 2, privileged"},
        {L"shutdown", "end 8, privileged"},
        {L"hiberhates", "hibernate, privileged"},
        {L"suspended", "suspend, privileged"},
        {L"lockWorkStation", "lock"},
        {L"closeMonitor", "monitor off"},
    };
    for (const auto& [member, call] : rows) {
        for (const bool succeeds : {true, false}) {
            calls_.succeeds = succeeds;
            const bool result = succeeds || member == std::wstring(L"closeMonitor");
            EXPECT_EQ(Call(member), result ? "BOOL true" : "BOOL false") << call;
            EXPECT_THAT(calls_.TakeCalls(), ElementsAre(call));
        }
    }
}

TEST_F(HarmlessSystem, RestartsElevated) {
    const auto put = [this](Argument value) {
        return PutMember(plugin_.Get(), L"administrator", std::move(value)).status;
    };
    EXPECT_THAT(put(false), HasStatus(S_OK));
    EXPECT_THAT(put(1), HasStatus(E_INVALIDARG));
    calls_.isAdministrator = true;
    EXPECT_THAT(put(true), HasStatus(S_OK));
    EXPECT_THAT(calls_.TakeCalls(), IsEmpty());

    calls_.isAdministrator = false;
    const std::string start = "open runas " + Narrow(ExecutablePath());
    for (const bool consent : {true, false}) {
        calls_.succeeds = consent;
        EXPECT_THAT(put(true), HasStatus(E_ABORT));
        EXPECT_THAT(calls_.TakeCalls(), ElementsAre(start, "quit"));
    }
    EXPECT_EQ(RestartArguments(CCommandLine(L"\"my app.exe\" -f \"a b\" x")), L" -f a b x") << "not quoted";
    EXPECT_EQ(RestartArguments(CCommandLine(L"app.exe")), L"");
}

TEST_F(System, RegistersLibraries) {
    const std::wstring library = Helper(L"self_registering.dll");
    EXPECT_EQ(Call(L"registerDll", library.c_str()), "BOOL true");
    EXPECT_EQ(Call(L"getEnvirVar", L"TARVIK_TEST_REGISTERED"), "BSTR yes");
    EXPECT_EQ(Call(L"unregisterDll", library.c_str()), "BOOL false") << "S_FALSE is not S_OK";
    EXPECT_EQ(Call(L"getEnvirVar", L"TARVIK_TEST_REGISTERED"), "NULL");
    EXPECT_FALSE(GetModuleHandleW(L"self_registering.dll"));

    CopyFileW(library.c_str(), (folder_ / L"beside the page.dll").c_str(), TRUE);
    EXPECT_EQ(Call(L"registerDll", L"beside the page.dll"), "BOOL true");
    folder_.Write(L"text.dll", "no library");
    for (const wchar_t* path : {L"missing.dll", L"text.dll", L"C:\\windows\\system32\\version.dll"})
        EXPECT_EQ(Call(L"registerDll", path), "BOOL false") << Narrow(path);
}

}  // namespace
}  // namespace tarvik
