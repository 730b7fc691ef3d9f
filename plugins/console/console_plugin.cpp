#include "plugins/console/console_plugin.h"

#include <string>

namespace tarvik {

namespace {

constexpr SmallMember<CConsolePlugin> kMembers[] = {
    {-6998, L"showJsError", &CConsolePlugin::ShowJsError},
    {-6999, L"log", &CConsolePlugin::Log},
};

[[maybe_unused]] const bool registered = RegisterBuiltIn<CConsolePlugin>(L"console", TVK::kRetainedPlugin);

}  // namespace

std::span<const SmallMember<CConsolePlugin>> CConsolePlugin::Members() {
    return kMembers;
}

// Only a string is written, the first argument alone; nothing is converted.
HRESULT CConsolePlugin::Log(WORD flags, const Call& call) {
    if (flags & DISPATCH_PROPERTYGET) return Give(call.Result(), Variant());
    if (call.Count() == 0) return E_FAIL;
    BSTR text = nullptr;
    // The channel takes texts up to a NUL, so a line ends there.
    if (Read(call.At(0), text)) OutputDebugStringW((std::wstring(text ? text : L"") + L'\n').c_str());
    return S_OK;
}

HRESULT CConsolePlugin::ShowJsError(WORD flags, const Call& call) {
    if (flags & DISPATCH_PROPERTYGET) return Give(call.Result(), Variant::Copy(showJsError_));
    if (!(flags & DISPATCH_PROPERTYPUT)) return E_FAIL;
    if (call.Count() == 0) return E_INVALIDARG;
    showJsError_ = Variant::Copy(call.At(0));
    return S_OK;
}

}  // namespace tarvik
