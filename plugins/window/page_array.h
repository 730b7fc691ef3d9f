#pragma once

#include <exdisp.h>

#include <string>
#include <vector>

#include "tarvik/variant.h"

namespace tarvik {

// A new Array of the page's own script with these texts; null if the page gives none.
Variant MakePageArray(IWebBrowser2* browser, const std::vector<std::wstring>& texts);

}  // namespace tarvik
