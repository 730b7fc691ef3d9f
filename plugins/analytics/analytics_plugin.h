#pragma once

#include "host/plugin_registry/plugin_base.h"
#include "plugins/analytics/analytics.h"
#include "plugins/analytics/hit_body.h"

namespace tarvik {

// `ga`: sends hits, which are page views and events, to a measurement service. Sending does not block;
// failures only appear in the log.
class CGoogleAnalyticsPlugin : public SmallPlugin<CGoogleAnalyticsPlugin, LocaleNameRules> {
  public:
    static std::span<const Member<CGoogleAnalyticsPlugin>> Members();

    CGoogleAnalyticsPlugin();
    explicit CGoogleAnalyticsPlugin(AnalyticsEndpoint endpoint) : endpoint_(std::move(endpoint)) {}

    // Reading a member calls it. Surplus arguments are ignored.
    HRESULT Page(const Call& call);
    HRESULT Event(const Call& call);
    HRESULT Set(const Call& call);

  private:
    template <class CreateBody>
    void Send(CreateBody createBody) const;

    const AnalyticsEndpoint endpoint_;
    HitSettings settings_;
};

}  // namespace tarvik
