#pragma once

#include <windows.h>

#include "tarvik/owners.h"
#include "tarvik/marshaled_object.h"

namespace tarvik {

// Keeps the apartment of the workers, and its way to the thread that made this, for as long as it lives; made
// and, if at all, destroyed by the main thread. Workers then need not set them up again and again. There is
// one more reason under Wine: the object that it keeps for calls to the main thread's object manager is
// shared by all workers, and workers that drop their last references side by side destroy it twice, unless
// one of its references is held all the time.
class WorkerApartment {
  public:
    WorkerApartment();
    ~WorkerApartment();  // serves calls to this thread meanwhile, and so may take as long as they do
    WorkerApartment(const WorkerApartment&) = delete;
    WorkerApartment& operator=(const WorkerApartment&) = delete;

  private:
    static DWORD WINAPI Stay(void* self);

    MarshaledObject home_;  // an object of the main thread
    UniqueHandle end_;
    UniqueHandle thread_;
};

}  // namespace tarvik
