#pragma once

#include <string>
#include <vector>

namespace tarvik {

// Collects what this process sends to the debugger's channel while the object lives. One at a time.
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
