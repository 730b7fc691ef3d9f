#pragma once

#include <map>
#include <string>
#include <vector>

#include "log_viewer/debug_output.h"

namespace tarvik {

// Makes lines of messages: a message ends a line, one that has line ends in it is several, and the pieces of
// a long text are put together again.
class LineJoiner {
  public:
    // The lines that are complete now, in the system's code page.
    std::vector<std::string> Add(const DebugMessage& message);

  private:
    std::map<DWORD, std::string> begun_;
};

}  // namespace tarvik
