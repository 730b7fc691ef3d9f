#pragma once

#include <windows.h>

#include <memory>

namespace tarvik {

// What a thread of its own does for a member. It is made on the main thread; from its start on it belongs to
// that thread, which runs it in the multi-threaded apartment and destroys it there.
class Worker {
  public:
    virtual ~Worker() = default;
    virtual HRESULT Run() = 0;  // may throw; the status is the thread's exit code
};

// Returns at once. A thread that cannot be started gives the system's error, and the worker is destroyed
// here.
[[nodiscard]] HRESULT StartWorker(std::unique_ptr<Worker> worker);

}  // namespace tarvik
