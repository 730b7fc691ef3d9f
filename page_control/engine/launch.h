#pragma once

#include <string>

namespace tarvik {

// The command-line arguments of every engine, each preceded by a blank. The caller adds the profile and the
// pipe.
std::wstring EngineArguments();

// A globally unique name, for folders and script identifiers.
std::wstring UniqueName();

}  // namespace tarvik
