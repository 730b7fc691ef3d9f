#pragma once

#include <exdisp.h>

#include <string>
#include <vector>

#include "tarvik/variant.h"

namespace tarvik {

// Creates a JavaScript Array of the page with these texts; null if the page cannot create one.
Variant MakePageArray(IWebBrowser2* browser, const std::vector<std::wstring>& texts);

}  // namespace tarvik
