#pragma once

#include <windows.h>

#include <memory>

namespace tarvik {

// Work on a thread of its own. It is created on the main thread. From its start on it belongs to its thread,
// which runs it in the multi-threaded apartment and destroys it there. It uses neither the plug-in nor
// TVK::ICore, which are the main thread's; objects of script it takes along as MarshaledObject.
class Worker {
  public:
    virtual ~Worker() = default;
    virtual HRESULT Run() = 0;  // may throw; the status is the thread's exit code
};

// Returns at once. If no thread can be started, returns the system's error and destroys the worker here. A
// library stays loaded until its workers have ended. The main thread must never wait for a worker without
// serving calls.
[[nodiscard]] HRESULT StartWorker(std::unique_ptr<Worker> worker);

}  // namespace tarvik
