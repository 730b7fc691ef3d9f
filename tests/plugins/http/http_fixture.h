#pragma once

#include "tests/plugins/support/page_core.h"
#include "tests/support/web_server.h"

namespace tarvik {

// A page with the plug-in, and a folder for its files.
class Http : public PluginsOfPage {
  protected:
    ComPtr<IDispatch> NewClient() const { return CallMember(plugin_.Get(), L"createClient").value.pdispVal; }

    const ObjectCheck noneIsLeft_;
    const ComPtr<IDispatch> plugin_ = Plugin(L"http");
};

}  // namespace tarvik
