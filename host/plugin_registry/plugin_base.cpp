#include "host/plugin_registry/plugin_base.h"

#include <string>

#include "app/log/log.h"

namespace tarvik {

void LogNoBrowser(const char* className) {
    TARVIK_ERROR((std::string(className) + "::Initialize").c_str(), L"Query IWebBrowser2 failed.");
}

}  // namespace tarvik
