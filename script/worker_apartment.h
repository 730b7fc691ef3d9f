#pragma once

#include <windows.h>

#include "tarvik/marshaled_object.h"
#include "tarvik/owners.h"

namespace tarvik {

// Keeps the multi-threaded apartment of the workers, and its connection to the main thread, alive, so that
// workers do not set them up again and again. Created and destroyed on the main thread.
//
// Wine needs this, too: all workers share its proxy of the main thread's object manager, and two workers that
// release their last references at the same time destroy the proxy twice. Here one reference is always held.
class WorkerApartment {
  public:
    WorkerApartment();
    ~WorkerApartment();  // serves pending calls to the main thread, and takes as long as they do
    WorkerApartment(const WorkerApartment&) = delete;
    WorkerApartment& operator=(const WorkerApartment&) = delete;

  private:
    static DWORD WINAPI Stay(void* self);

    MarshaledObject home_;  // an object of the main thread
    UniqueHandle end_;
    UniqueHandle thread_;
};

}  // namespace tarvik
