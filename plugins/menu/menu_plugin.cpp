#include "plugins/menu/menu_plugin.h"

#include <cwchar>

#include "app/log/log.h"
#include "atl/server_window.h"
#include "plugins/menu/menu_object.h"

namespace tarvik {

namespace {

constexpr Member<CMenuManagePlugin> kMembers[] = {
    RawMethod<&CMenuManagePlugin::CreateMenu, 0, 1>(L"createMenu", -9995),
};

[[maybe_unused]] const bool registered = RegisterBuiltIn<CMenuManagePlugin>(L"menu", TVK::kRetainedPlugin);

std::optional<TVK::MenuType> TypeNamed(const wchar_t* name) {
    constexpr const wchar_t* kNames[] = {L"popupMenu", L"trayMenu", L"windowMenu"};
    for (const auto type : {TVK::kPopupMenu, TVK::kTrayMenu, TVK::kWindowMenu}) {
        if (_wcsicmp(name, kNames[type]) == 0) return type;
    }
    return std::nullopt;
}

}  // namespace

std::span<const Member<CMenuManagePlugin>> CMenuManagePlugin::Members() {
    return kMembers;
}

STDMETHODIMP CMenuManagePlugin::Initialize(TVK::ICore* core, IUnknown* browser) {
    if (!core || !browser) return E_INVALIDARG;
    if (!core_) core_ = core;
    return S_OK;
}

HRESULT CMenuManagePlugin::CreateMenu(const Call& call) {
    BSTR name = nullptr;
    if (call.Count() > 0 && !FromVariant(call.At(0), name)) return E_INVALIDARG;
    const auto type = call.Count() > 0 ? TypeNamed(name ? name : L"") : TVK::kPopupMenu;
    if (!type) return E_NOTIMPL;
    if (!call.Result()) {
        TARVIK_ERROR("CMenuManagePlugin::CreateMenu", L"pResult is NULL.");
        return E_INVALIDARG;
    }
    // A plug-in created while its window is being destroyed has no core.
    const HWND window = core_ ? core_->GetWindowHandle() : nullptr;
    const auto menu = MakeCom<CMenuDispatch>();
    ThrowIfFailed(menu->Init(GetIEServerWnd(window), window, *type));
    return SetResult(call.Result(), ComPtr<IDispatch>(menu.Get()));
}

}  // namespace tarvik
