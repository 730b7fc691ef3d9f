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
    Method<&CSystemPlugin::EndSession<EWX_REBOOT>>(L"reboot", -10000),
    Method<&CSystemPlugin::EndSession<EWX_POWEROFF>>(L"shutdown", -9999),
    Method<&CSystemPlugin::Suspend<true>>(L"hiberhates", -9998),
    Method<&CSystemPlugin::Suspend<false>>(L"suspended", -9997),
    Method<&CSystemPlugin::CloseMonitor>(L"closeMonitor", -9996),
    Method<&CSystemPlugin::LockWorkStation>(L"lockWorkStation", -9995),
    Method<&CSystemPlugin::Abort>(L"abort", -9994),
    Method<&CSystemPlugin::ShellExecute>(L"shellExecute", -9993),
    Method<&CSystemPlugin::CreateShortcut>(L"createShortcut", -9992),
    Method<&CSystemPlugin::ParseShortcut>(L"parseShortcut", -9991),
    Method<&CSystemPlugin::GetEnvirVar>(L"getEnvirVar", -9990),
    Method<&CSystemPlugin::ExpandEnvirPath>(L"expandEnvirPath", -9989),
    Method<&CSystemPlugin::PinToTaskbar>(L"pinToTaskbar", -9988),
    Method<&CSystemPlugin::UnpinFromTaskbar>(L"unpinFromTaskbar", -9987),
    Method<&CSystemPlugin::RegisterDll>(L"registerDll", -9986),
    Method<&CSystemPlugin::UnregisterDll>(L"unregisterDll", -9985),

    Property<&CSystemPlugin::GetAdministrator, &CSystemPlugin::SetAdministrator>(L"administrator", -9984),
    ReadOnly<&CSystemPlugin::GetCmdArgs>(L"cmdArgs", -9983),
    ReadOnly<&CSystemPlugin::GetSystemLanguage>(L"systemLanguage", -9982),
    ReadOnly<&CSystemPlugin::GetUserLanguage>(L"userLanguage", -9981),
    ReadOnly<&CSystemPlugin::IsX64Process>(L"isX64Process", -9980),
    ReadOnly<&CSystemPlugin::IsX64System>(L"isX64System", -9979),
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
    return {Guard([&] { return ExecuteByShell(calls_, core_.Get(), this, options); })};
}

Outcome CSystemPlugin::CreateShortcut(IDispatch* options) {
    if (!options) return {E_FAIL};
    return {Guard([&] { return SaveShortcut(core_.Get(), options); })};
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
    BOOL is32Bit = FALSE;
    return isWow64 && isWow64(GetCurrentProcess(), &is32Bit) && is32Bit;
}

std::wstring CSystemPlugin::PathOf(BSTR path) const {
    return ResolveUrl(core_.Get(), std::wstring(Bstr::View(path)));
}

}  // namespace tarvik
