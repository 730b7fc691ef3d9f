#pragma once

#include "host/registry/plugin_base.h"
#include "plugins/ga/analytics.h"
#include "plugins/ga/hit_text.h"

namespace tarvik {

// `ga`: tells a measurement service which screens are seen and what is done there. Nobody waits for a hit,
// and one that fails is lost; that shows in the log alone.
class CGoogleAnalyticsPlugin : public SmallPlugin<CGoogleAnalyticsPlugin, SameInLocale> {
  public:
    static std::span<const SmallMember<CGoogleAnalyticsPlugin>> Members();

    CGoogleAnalyticsPlugin();
    explicit CGoogleAnalyticsPlugin(AnalyticsEndpoint endpoint) : endpoint_(std::move(endpoint)) {}

    // Reads and calls are the same here, and what is more than the named arguments does not count.
    HRESULT Page(WORD flags, const Call& call);
    HRESULT Event(WORD flags, const Call& call);
    HRESULT Set(WORD flags, const Call& call);

  private:
    template <class MakeBody>
    void Send(MakeBody makeBody) const;

    const AnalyticsEndpoint endpoint_;
    HitOrigin origin_;
};

}  // namespace tarvik
