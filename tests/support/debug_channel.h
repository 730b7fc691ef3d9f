#pragma once

#include <string>
#include <vector>

namespace tarvik {

// Collects the texts that this process sends to the debugger. There may be one such object at a time.
class DebugChannel {
  public:
    DebugChannel();
    ~DebugChannel();
    DebugChannel(const DebugChannel&) = delete;
    DebugChannel& operator=(const DebugChannel&) = delete;

    std::vector<std::string> texts;

  private:
    void* handler_;
};

}  // namespace tarvik
