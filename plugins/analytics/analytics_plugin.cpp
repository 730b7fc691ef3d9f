#include "plugins/analytics/analytics_plugin.h"

#include "app/log/log.h"

namespace tarvik {

namespace {

constexpr Member<CGoogleAnalyticsPlugin> kMembers[] = {
    Method<&CGoogleAnalyticsPlugin::Page>(-6999, L"page"),
    Method<&CGoogleAnalyticsPlugin::Event>(-6998, L"event"),
    Method<&CGoogleAnalyticsPlugin::Set>(-6997, L"set"),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CGoogleAnalyticsPlugin>(L"ga", TVK::kRetainedPlugin);

// A text that is an argument, up to its first zero.
bool ReadText(const Call& call, size_t index, std::wstring& out) {
    BSTR text = nullptr;
    if (index >= call.Count() || !FromVariant(call.At(index), text)) return false;
    out = text ? text : L"";
    return true;
}

// The bits of what is no text, whatever its kind. It is converted all the same, which objects of script
// notice.
std::wstring BitsOf(const VARIANT& value) {
    Variant::Copy(value).ChangeType(VT_I4);
    return std::to_wstring(value.lVal);
}

}  // namespace

std::span<const Member<CGoogleAnalyticsPlugin>> CGoogleAnalyticsPlugin::Members() {
    return kMembers;
}

CGoogleAnalyticsPlugin::CGoogleAnalyticsPlugin() : CGoogleAnalyticsPlugin({TARVIK_ANALYTICS_HOST}) {}

HRESULT CGoogleAnalyticsPlugin::Page(const Call& call) {
    std::wstring screen;
    if (!ReadText(call, 0, screen)) return E_FAIL;
    Send([&] { return PageHit(screen, origin_); });
    return S_OK;
}

HRESULT CGoogleAnalyticsPlugin::Event(const Call& call) {
    std::wstring category, action;
    if (call.Count() < 2 || !ReadText(call, 0, category)) return S_OK;
    if (!ReadText(call, 1, action)) action = BitsOf(call.At(1));
    Send([&] { return EventHit(category, action, origin_); });
    return S_OK;
}

HRESULT CGoogleAnalyticsPlugin::Set(const Call& call) {
    HitOrigin origin;
    if (!ReadText(call, 0, origin.trackingId) || !ReadText(call, 1, origin.applicationName) ||
        !ReadText(call, 2, origin.applicationVersion))
        return E_FAIL;
    origin_ = std::move(origin);
    return S_OK;
}

template <class MakeBody>
void CGoogleAnalyticsPlugin::Send(MakeBody makeBody) const {
    const HRESULT status = Guard([&] {
        auto hit = std::make_unique<CAnalytics>();
        hit->Open(endpoint_);
        CAnalytics::Send(std::move(hit), makeBody());
    });
    if (FAILED(status)) TARVIK_ERROR("CAnalytics::Send", L"catch: %08X", static_cast<unsigned>(status));
}

}  // namespace tarvik
