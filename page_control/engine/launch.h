#pragma once

#include <string>

namespace tarvik {

// The command-line arguments of every engine, each preceded by a blank. The caller adds the profile and the
// pipe.
std::wstring EngineArguments();

// The pixels of a frame for each CSS pixel: the scale of the monitor with the highest one when this was
// called first. The engine has one scale for all frames, so those for other monitors are reduced.
double EngineScale();

// A globally unique name, for folders and script identifiers.
std::wstring UniqueName();

}  // namespace tarvik
