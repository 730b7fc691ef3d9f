#include "plugins/analytics/analytics_plugin.h"

#include "app/log/log.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr Member<CGoogleAnalyticsPlugin> kMembers[] = {
    Method<&CGoogleAnalyticsPlugin::Page>(L"page", -6999),
    Method<&CGoogleAnalyticsPlugin::Event>(L"event", -6998),
    Method<&CGoogleAnalyticsPlugin::Set>(L"set", -6997),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CGoogleAnalyticsPlugin>(L"ga", TVK::kRetainedPlugin);

// Reads a text argument up to its first NUL.
bool ReadTextArgument(const Call& call, size_t index, std::wstring& out) {
    BSTR text = nullptr;
    if (index >= call.Count() || !FromVariant(call.At(index), text)) return false;
    out = text ? text : L"";
    return true;
}

// The low 32 bits of a value of any type. The contract requires the conversion, although its result is not
// used: scripts can observe that of an object.
std::wstring RawInteger(const VARIANT& value) {
    Variant::Copy(value).ChangeType(VT_I4);
    return DecimalText(value.lVal);
}

}  // namespace

std::span<const Member<CGoogleAnalyticsPlugin>> CGoogleAnalyticsPlugin::Members() {
    return kMembers;
}

CGoogleAnalyticsPlugin::CGoogleAnalyticsPlugin() : CGoogleAnalyticsPlugin({TARVIK_ANALYTICS_HOST}) {}

HRESULT CGoogleAnalyticsPlugin::Page(const Call& call) {
    std::wstring screen;
    if (!ReadTextArgument(call, 0, screen)) return E_FAIL;
    Send([&] { return PageHitBody(screen, settings_); });
    return S_OK;
}

HRESULT CGoogleAnalyticsPlugin::Event(const Call& call) {
    std::wstring category, action;
    if (call.Count() < 2 || !ReadTextArgument(call, 0, category)) return S_OK;
    if (!ReadTextArgument(call, 1, action)) action = RawInteger(call.At(1));
    Send([&] { return EventHitBody(category, action, settings_); });
    return S_OK;
}

HRESULT CGoogleAnalyticsPlugin::Set(const Call& call) {
    HitSettings settings;
    if (!ReadTextArgument(call, 0, settings.trackingId) ||
        !ReadTextArgument(call, 1, settings.applicationName) ||
        !ReadTextArgument(call, 2, settings.applicationVersion))
        return E_FAIL;
    settings_ = std::move(settings);
    return S_OK;
}

template <class CreateBody>
void CGoogleAnalyticsPlugin::Send(CreateBody createBody) const {
    const HRESULT status = Guard([&] {
        auto hit = std::make_unique<CAnalytics>();
        hit->Open(endpoint_);
        CAnalytics::Send(std::move(hit), createBody());
    });
    if (FAILED(status)) TARVIK_ERROR("CAnalytics::Send", L"catch: %08X", static_cast<unsigned>(status));
}

}  // namespace tarvik
