#pragma once

#include <string>

namespace tarvik {

// Whether this is Wine, where the engine is a program of the system underneath.
bool IsWine();

// The browser to start: what the environment variable TARVIK_BROWSER says; else Edge or Chrome where Windows
// registers them; under Wine /usr/bin/chromium. Empty if there is none.
std::wstring FindEngine();

// What a person is to do when there is none.
std::wstring MissingEngineText();

}  // namespace tarvik
