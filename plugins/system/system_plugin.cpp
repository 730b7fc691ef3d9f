#include "plugins/system/system_plugin.h"

#include "base/language.h"
#include "base/module_function.h"
#include "plugins/system/create_shortcut.h"
#include "plugins/system/elevated_restart.h"
#include "plugins/system/environment.h"
#include "plugins/system/self_registration.h"
#include "plugins/system/shell_execute.h"
#include "plugins/system/shortcut_file.h"
#include "plugins/system/taskbar_verb.h"

namespace tarvik {

namespace {

constexpr Member<CSystemPlugin> kMembers[] = {
    Method<&CSystemPlugin::EndSession<EWX_REBOOT>>(-10000, L"reboot"),
    Method<&CSystemPlugin::EndSession<EWX_POWEROFF>>(-9999, L"shutdown"),
    Method<&CSystemPlugin::Suspend<true>>(-9998, L"hiberhates"),
    Method<&CSystemPlugin::Suspend<false>>(-9997, L"suspended"),
    Method<&CSystemPlugin::CloseMonitor>(-9996, L"closeMonitor"),
    Method<&CSystemPlugin::LockWorkStation>(-9995, L"lockWorkStation"),
    Method<&CSystemPlugin::Abort>(-9994, L"abort"),
    Method<&CSystemPlugin::ShellExecute>(-9993, L"shellExecute"),
    Method<&CSystemPlugin::CreateShortcut>(-9992, L"createShortcut"),
    Method<&CSystemPlugin::ParseShortcut>(-9991, L"parseShortcut"),
    Method<&CSystemPlugin::GetEnvirVar>(-9990, L"getEnvirVar"),
    Method<&CSystemPlugin::ExpandEnvirPath>(-9989, L"expandEnvirPath"),
    Method<&CSystemPlugin::PinToTaskbar>(-9988, L"pinToTaskbar"),
    Method<&CSystemPlugin::UnpinFromTaskbar>(-9987, L"unpinFromTaskbar"),
    Method<&CSystemPlugin::RegisterDll>(-9986, L"registerDll"),
    Method<&CSystemPlugin::UnregisterDll>(-9985, L"unregisterDll"),

    Property<&CSystemPlugin::GetAdministrator, &CSystemPlugin::SetAdministrator>(-9984, L"administrator"),
    ReadOnly<&CSystemPlugin::GetCmdArgs>(-9983, L"cmdArgs"),
    ReadOnly<&CSystemPlugin::GetSystemLanguage>(-9982, L"systemLanguage"),
    ReadOnly<&CSystemPlugin::GetUserLanguage>(-9981, L"userLanguage"),
    ReadOnly<&CSystemPlugin::IsX64Process>(-9980, L"isX64Process"),
    ReadOnly<&CSystemPlugin::IsX64System>(-9979, L"isX64System"),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CSystemPlugin>(L"system", TVK::kRetainedPlugin);

Variant OptionalText(const std::optional<std::wstring>& text) {
    return text ? Variant::Text(*text) : Variant();
}

}  // namespace

std::span<const Member<CSystemPlugin>> CSystemPlugin::Members() {
    return kMembers;
}

STDMETHODIMP CSystemPlugin::Initialize(TVK::ICore* core, IUnknown*) {
    if (!core) return E_INVALIDARG;
    core_ = core;
    PublishSpecialFolders();
    return S_OK;
}

// In this plug-in a call with the flags of a write and a read is a write, and a read needs no slot for its
// result.
STDMETHODIMP CSystemPlugin::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* argument) {
    if (flags & DISPATCH_PROPERTYPUT) flags &= static_cast<WORD>(~DISPATCH_PROPERTYGET);
    Variant unwanted;
    return Dispatch::Invoke(id, iid, locale, flags, parameters, result ? result : &unwanted, exception,
                            argument);
}

bool CSystemPlugin::CloseMonitor() {
    calls_.TurnOffMonitor();
    return true;
}

bool CSystemPlugin::LockWorkStation() {
    return calls_.LockScreen();
}

// The failure stops the calling script.
HRESULT CSystemPlugin::Abort(const Call&) {
    return E_ABORT;
}

Outcome CSystemPlugin::ShellExecute(IDispatch* options) {
    if (!options) return {E_FAIL};
    return {Guard([&] { return ExecuteByShell(calls_, core_.Get(), this, Options(options)); })};
}

Outcome CSystemPlugin::CreateShortcut(IDispatch* options) {
    if (!options) return {E_FAIL};
    return {Guard([&] { return SaveShortcut(core_.Get(), Options(options)); })};
}

Variant CSystemPlugin::ParseShortcut(BSTR path) {
    Variant parsed = Variant::Null();
    (void)Guard([&] { parsed = Variant::Object(ReadLinkFile(std::wstring(Bstr::View(path))).Get()); });
    return parsed;
}

std::optional<Bstr> CSystemPlugin::GetEnvirVar(BSTR name) {
    return EnvironmentVariable(std::wstring(Bstr::View(name)));
}

std::optional<Bstr> CSystemPlugin::ExpandEnvirPath(BSTR text) {
    return ExpandEnvironment(std::wstring(Bstr::View(text)));
}

Outcome CSystemPlugin::PinToTaskbar(BSTR path) {
    return {Guard([&] { return DoTaskbarVerb(kPinVerb, PathOf(path)); })};
}

Outcome CSystemPlugin::UnpinFromTaskbar(BSTR path) {
    return {Guard([&] { return DoTaskbarVerb(kUnpinVerb, PathOf(path)); })};
}

Outcome CSystemPlugin::RegisterDll(BSTR path) {
    return {Guard([&] { return CallRegistration(PathOf(path), "DllRegisterServer"); })};
}

Outcome CSystemPlugin::UnregisterDll(BSTR path) {
    return {Guard([&] { return CallRegistration(PathOf(path), "DllUnregisterServer"); })};
}

bool CSystemPlugin::GetAdministrator() {
    return calls_.IsAdministrator();
}

HRESULT CSystemPlugin::SetAdministrator(bool wanted) {
    return wanted ? RestartElevated(calls_) : S_OK;
}

Variant CSystemPlugin::GetCmdArgs() {
    (void)Guard([&] {
        if (!cmdArgs_) cmdArgs_ = MakeCom<CCmdArgs>();
    });
    return cmdArgs_ ? Variant::Object(cmdArgs_.Get()) : Variant();
}

Variant CSystemPlugin::GetSystemLanguage() {
    return OptionalText(LanguageTag(LOCALE_SYSTEM_DEFAULT));
}

Variant CSystemPlugin::GetUserLanguage() {
    return OptionalText(LanguageTag(LOCALE_USER_DEFAULT));
}

bool CSystemPlugin::IsX64Process() {
    return true;
}

// By design the unchanged result of IsWow64Process, which is false for a 64-bit process on a 64-bit system.
bool CSystemPlugin::IsX64System() {
    using IsWow64 = BOOL WINAPI(HANDLE, BOOL*);
    auto* const isWow64 = FindFunction<IsWow64>(L"kernel32.dll", "IsWow64Process");
    BOOL answer = FALSE;
    return isWow64 && isWow64(GetCurrentProcess(), &answer) && answer;
}

std::wstring CSystemPlugin::PathOf(BSTR path) const {
    return ResolveUrl(core_.Get(), std::wstring(Bstr::View(path)));
}

}  // namespace tarvik
