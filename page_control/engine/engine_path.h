#pragma once

#include <string>

#include "base/wine.h"

namespace tarvik {

// The path of the browser to start: the environment variable TARVIK_BROWSER, or else Edge or Chrome as
// registered on Windows, /usr/bin/chromium under Wine. Empty if there is none.
std::wstring FindEngine();

// The message for the user if there is none.
std::wstring MissingEngineText();

}  // namespace tarvik
