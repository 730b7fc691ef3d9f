#pragma once

#include <windows.h>

#include <memory>

namespace tarvik {

// Work on a thread of its own, in the multi-threaded apartment. The main thread creates the worker; Run and
// the destructor run on the new thread. They must not use the plug-in or TVK::ICore, which belong to the main
// thread. To use a script object there, make a MarshaledObject a member of the worker.
class Worker {
  public:
    virtual ~Worker() = default;
    // May throw. The status, or that of the exception, becomes the exit code of the thread.
    virtual HRESULT Run() = 0;
};

// Starts the thread of a worker and returns at once. If no thread can be started, destroys the worker here
// and returns the system's error. The plug-in library stays loaded until its workers have ended. The main
// thread must not wait for a worker without pumping messages: the worker may be waiting for a call to the
// main thread.
[[nodiscard]] HRESULT StartWorker(std::unique_ptr<Worker> worker);

}  // namespace tarvik
