#pragma once

#include <string>

#include "base/wine.h"

namespace tarvik {

// The browser to start: what the environment variable TARVIK_BROWSER says; else Edge or Chrome where Windows
// registers them; under Wine /usr/bin/chromium. Empty if there is none.
std::wstring FindEngine();

// What a person is to do when there is none.
std::wstring MissingEngineText();

}  // namespace tarvik
