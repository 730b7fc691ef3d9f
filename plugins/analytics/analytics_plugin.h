#pragma once

#include "host/plugin_registry/plugin_base.h"
#include "plugins/analytics/analytics.h"
#include "plugins/analytics/hit_text.h"

namespace tarvik {

// `ga`: tells a measurement service which screens are seen and what is done there. Nobody waits for a hit,
// and one that fails is lost; that shows in the log alone.
class CGoogleAnalyticsPlugin : public SmallPlugin<CGoogleAnalyticsPlugin, LocaleNameRules> {
  public:
    static std::span<const Member<CGoogleAnalyticsPlugin>> Members();

    CGoogleAnalyticsPlugin();
    explicit CGoogleAnalyticsPlugin(AnalyticsEndpoint endpoint) : endpoint_(std::move(endpoint)) {}

    // Reads and calls are the same here, and what is more than the named arguments does not count.
    HRESULT Page(const Call& call);
    HRESULT Event(const Call& call);
    HRESULT Set(const Call& call);

  private:
    template <class MakeBody>
    void Send(MakeBody makeBody) const;

    const AnalyticsEndpoint endpoint_;
    HitOrigin origin_;
};

}  // namespace tarvik
