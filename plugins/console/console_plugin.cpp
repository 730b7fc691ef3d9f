#include "plugins/console/console_plugin.h"

#include <string>

namespace tarvik {

namespace {

constexpr Member<CConsolePlugin> kMembers[] = {
    ReadableMethod<&CConsolePlugin::Log, &CConsolePlugin::GetLog>(L"log", -6999),
    Property<&CConsolePlugin::GetShowJsError, &CConsolePlugin::SetShowJsError>(L"showJsError", -6998),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CConsolePlugin>(L"console", TVK::kRetainedPlugin);

}  // namespace

std::span<const Member<CConsolePlugin>> CConsolePlugin::Members() {
    return kMembers;
}

// Writes the first argument, if it is a string.
HRESULT CConsolePlugin::Log(const Call& call) {
    if (call.Count() == 0) return E_FAIL;
    BSTR text = nullptr;
    // OutputDebugStringW stops at the first NUL, so a text is cut there.
    if (FromVariant(call.At(0), text)) OutputDebugStringW((std::wstring(text ? text : L"") + L'\n').c_str());
    return S_OK;
}

HRESULT CConsolePlugin::SetShowJsError(const Call& call) {
    if (call.Count() == 0) return E_INVALIDARG;
    showJsError_ = Variant::Copy(call.At(0));
    return S_OK;
}

}  // namespace tarvik
