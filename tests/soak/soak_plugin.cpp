#include "tests/soak/soak_plugin.h"

#include "script/object.h"
#include "script/properties.h"

namespace tarvik {

SoakAnswers soakAnswers;

namespace {

constexpr Member<SoakPlugin> kMembers[] = {
    Method<&SoakPlugin::Make>(-10000, L"make"),    Method<&SoakPlugin::Hold>(-9999, L"hold"),
    Method<&SoakPlugin::CallBack>(-9998, L"call"), Method<&SoakPlugin::Ready>(-9997, L"ready"),
    Method<&SoakPlugin::Leave>(-9996, L"leave"),
};

[[maybe_unused]] const bool registered = RegisterBuiltIn<SoakPlugin>(L"soak", TVK::kRetainedPlugin);

}  // namespace

std::span<const Member<SoakPlugin>> SoakPlugin::Members() {
    return kMembers;
}

ComPtr<IDispatch> SoakPlugin::Make() {
    return MakeCom<CObject>();
}

HRESULT SoakPlugin::CallBack(IDispatch* function) {
    const auto object = Make();
    const Variant argument = Variant::Object(object.Get());
    return CallScriptFunction(function, {&argument});
}

bool SoakPlugin::Ready() {
    const ComPtr<IDispatch> held = held_;
    if (held) CallBack(held.Get());
    return soakAnswers.ready();
}

}  // namespace tarvik
