#pragma once

#include <string>

namespace tarvik {

// The arguments that every engine is started with, each with a blank before it; the profile's folder and the
// pipe come on top.
std::wstring EngineArguments();

// A name that nobody else uses, for folders.
std::wstring UniqueName();

}  // namespace tarvik
