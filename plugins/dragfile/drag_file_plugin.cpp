#include "plugins/dragfile/drag_file_plugin.h"

#include "script/object.h"
#include "tarvik/script_object.h"

namespace tarvik {

namespace {

constexpr Member<CDragFilePlugin> kMembers[] = {
    Method<&CDragFilePlugin::Bind>(L"bind", -6999),
    Method<&CDragFilePlugin::Get>(L"get", -6998),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CDragFilePlugin>(L"dragfile", TVK::kRetainedPlugin);

}  // namespace

std::span<const Member<CDragFilePlugin>> CDragFilePlugin::Members() {
    return kMembers;
}

STDMETHODIMP CDragFilePlugin::Initialize(TVK::ICore* core, IUnknown* browser) {
    if (!core) return E_INVALIDARG;
    bindings_.SubclassWindow(core->GetWindowHandle(), AsUnknown());
    return BrowserPlugin::Initialize(core, browser);
}

HRESULT CDragFilePlugin::Bind(const Call& call) {
    BSTR id = nullptr;
    if (call.Count() < 2 || !FromVariant(call.At(0), id)) return E_INVALIDARG;
    const std::wstring name(Bstr::View(id));
    IDispatch* function = nullptr;
    const bool binds = FromVariant(call.At(1), function) && function;
    Binding binding{ComPtr<IDispatch>(binds ? function : nullptr),
                    call.Count() > 2 ? Variant::Copy(call.At(2)) : Variant()};
    // Destroyed last: releasing a function may call back into this object.
    const auto replaced = bindings_.byId.extract(name);
    if (binds && bindings_.Window()) bindings_.byId.emplace(name, std::move(binding));
    return S_OK;
}

HRESULT CDragFilePlugin::Get(const Call& call) {
    BSTR id = nullptr;
    if (call.Count() == 0 || !FromVariant(call.At(0), id) || !id) return E_INVALIDARG;
    const auto found = bindings_.byId.find(Bstr::View(id));
    if (found == bindings_.byId.end()) return S_OK;
    const auto& [function, context] = found->second;
    const ScriptObject object(MakeCom<CObject>().Get());
    object.Set(L"callback", function);
    object.Set(L"context", context);
    return SetResult(call.Result(), object);
}

}  // namespace tarvik
