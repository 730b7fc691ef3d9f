#pragma once

#include <windows.h>

#include "tarvik/marshaled_object.h"
#include "tarvik/owners.h"

namespace tarvik {

// Keeps the workers' multi-threaded apartment and its connection to the main thread alive, so that workers do
// not set them up again and again. Created and destroyed on the main thread.
//
// It also avoids a race in Wine: all workers share one proxy of the main thread's object manager, and two
// workers that release the last references at the same time destroy the proxy twice. This holds one
// reference.
class WorkerApartment {
  public:
    WorkerApartment();
    ~WorkerApartment();  // serves pending calls to the main thread until they return
    WorkerApartment(const WorkerApartment&) = delete;
    WorkerApartment& operator=(const WorkerApartment&) = delete;

  private:
    static DWORD WINAPI ThreadMain(void* self);

    MarshaledObject mainThreadObject_;
    UniqueHandle stopEvent_;
    UniqueHandle thread_;
};

}  // namespace tarvik
