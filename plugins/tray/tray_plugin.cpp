#include "plugins/tray/tray_plugin.h"

#include "atl/module.h"

namespace tarvik {

namespace {

constexpr Member<CTrayPlugin> kMembers[] = {
    Method<&CTrayPlugin::AddTray>(L"addTray", -10000),
    Method<&CTrayPlugin::Show>(L"show", -9999),
    Method<&CTrayPlugin::Hide>(L"hide", -9998),
    WriteOnly<&CTrayPlugin::SetCallback<TrayEvent::kClick>>(L"onClick", -9997),
    WriteOnly<&CTrayPlugin::SetCallback<TrayEvent::kDoubleClick>>(L"onDbClick", -9996),
    WriteOnly<&CTrayPlugin::SetCallback<TrayEvent::kRightClick>>(L"onRClick", -9995),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CTrayPlugin>(L"tray", TVK::kRetainedPlugin);

constexpr WORD kProgramIcon = 1000;

HICON LoadSmallIcon(HINSTANCE module, const wchar_t* name, UINT flags) {
    SetLastError(ERROR_SUCCESS);
    return static_cast<HICON>(LoadImageW(module, name, IMAGE_ICON, GetSystemMetrics(SM_CXSMICON),
                                         GetSystemMetrics(SM_CYSMICON), flags));
}

}  // namespace

std::span<const Member<CTrayPlugin>> CTrayPlugin::Members() {
    return kMembers;
}

STDMETHODIMP CTrayPlugin::Initialize(TVK::ICore* core, IUnknown* browser) {
    if (!core || !browser) return E_INVALIDARG;
    if (core_) return S_OK;
    core_ = core;
    tray_.SubclassWindow(core->GetWindowHandle(), AsUnknown());
    return S_OK;
}

HRESULT CTrayPlugin::AddTray(BSTR tip, std::optional<BSTR> icon) {
    const std::wstring path(Bstr::View(icon.value_or(nullptr)));
    tray_.SetTip(std::wstring(Bstr::View(tip)));
    tray_.SetIcon({});
    UniqueIcon loaded(path.empty()
                          ? LoadSmallIcon(appModule.Instance(), MAKEINTRESOURCEW(kProgramIcon), 0)
                          : LoadSmallIcon(nullptr, ResolvePath(core_.Get(), path).c_str(), LR_LOADFROMFILE));
    if (!loaded) ThrowLastError();
    tray_.SetIcon(std::move(loaded));
    tray_.Add();
    return S_OK;
}

HRESULT CTrayPlugin::Show() {
    tray_.Add();
    return S_OK;
}

HRESULT CTrayPlugin::Hide() {
    tray_.Remove();
    return S_OK;
}

}  // namespace tarvik
