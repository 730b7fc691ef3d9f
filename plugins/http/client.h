#pragma once

#include "tarvik/plugin.h"
#include "script/dispatch.h"

namespace tarvik {

// What `http.createClient` gives. It has no state of its own: any number of downloads may be under way, and
// they go on when script drops it.
class CClientDispatch : public TableDispatch<CClientDispatch> {
  public:
    static constexpr char kClassName[] = "CClientDispatch";
    static std::span<const Member<CClientDispatch>> Members();

    explicit CClientDispatch(const ComPtr<TVK::ICore>& core) : core_(core) {}

    bool DownloadToFile(IDispatch* options);

  private:
    const ComPtr<TVK::ICore> core_;
};

}  // namespace tarvik
