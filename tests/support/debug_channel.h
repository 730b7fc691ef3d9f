#pragma once

#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace tarvik {

// Collects the texts that the threads of this process send to the debugger. There may be one such object at a
// time.
class DebugChannel {
  public:
    DebugChannel();
    ~DebugChannel();
    DebugChannel(const DebugChannel&) = delete;
    DebugChannel& operator=(const DebugChannel&) = delete;

    std::vector<std::string> Texts() const {
        const std::lock_guard lock(lock_);
        return texts_;
    }
    void Add(std::string text) {
        const std::lock_guard lock(lock_);
        texts_.push_back(std::move(text));
    }

  private:
    mutable std::mutex lock_;
    std::vector<std::string> texts_;
    void* handler_;
};

}  // namespace tarvik
