#include "script/worker_apartment.h"

#include <combaseapi.h>

#include "script/object.h"

namespace tarvik {

WorkerApartment::WorkerApartment()
    : home_(MakeCom<CObject>().Get()),
      end_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      thread_(end_ ? CreateThread(nullptr, 0, Stay, this, 0, nullptr) : nullptr) {}

WorkerApartment::~WorkerApartment() {
    if (!thread_) return;
    SetEvent(end_.Get());
    HANDLE thread = thread_.Get();
    DWORD index = 0;
    CoWaitForMultipleHandles(0, INFINITE, 1, &thread, &index);
}

DWORD WINAPI WorkerApartment::Stay(void* self) {
    auto& apartment = *static_cast<WorkerApartment*>(self);
    const HRESULT initialized = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    // The first query for an interface that the proxy does not have connects to the object manager.
    Query<IPersist>(apartment.home_.Get());
    WaitForSingleObject(apartment.end_.Get(), INFINITE);
    apartment.home_ = MarshaledObject();
    if (SUCCEEDED(initialized)) CoUninitialize();
    return 0;
}

}  // namespace tarvik
