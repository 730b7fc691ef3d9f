#pragma once

#include "script/dispatch.h"
#include "tarvik/plugin.h"

namespace tarvik {

// The result of `http.createClient`. It has no state: any number of downloads may be in progress, and they
// continue after the object has been released.
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
