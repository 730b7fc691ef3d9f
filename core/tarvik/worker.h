#pragma once

#include <windows.h>

#include <memory>

namespace tarvik {

// Work for a thread of its own, in the multi-threaded apartment. The worker is created on the main thread,
// and runs and is destroyed on its own thread. It must not use the plug-in or TVK::ICore, which belong to the
// main thread; script objects go along as MarshaledObject.
class Worker {
  public:
    virtual ~Worker() = default;
    // May throw. The status becomes the exit code of the thread.
    virtual HRESULT Run() = 0;
};

// Starts the thread of a worker and returns at once. If no thread can be started, destroys the worker here
// and returns the system's error. The module that contains this code stays loaded until its workers have
// ended. The main thread must not wait for a worker without pumping messages: the worker may be waiting for a
// call to the main thread.
[[nodiscard]] HRESULT StartWorker(std::unique_ptr<Worker> worker);

}  // namespace tarvik
