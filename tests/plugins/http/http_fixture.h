#pragma once

#include "tests/plugins/support/page_core.h"
#include "tests/support/web_server.h"

namespace tarvik {

// The plug-in in a page in a temporary folder.
class Http : public PluginsOfPage {
  protected:
    ComPtr<IDispatch> NewClient() const { return CallMember(plugin_.Get(), L"createClient").value.pdispVal; }

    const ObjectCheck objectCheck_;
    const ComPtr<IDispatch> plugin_ = Plugin(L"http");
};

}  // namespace tarvik
