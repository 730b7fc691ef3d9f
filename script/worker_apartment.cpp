#include "script/worker_apartment.h"

#include <combaseapi.h>

#include "script/object.h"

namespace tarvik {

WorkerApartment::WorkerApartment()
    : mainThreadObject_(MakeCom<CObject>().Get()),
      stopEvent_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      thread_(stopEvent_ ? CreateThread(nullptr, 0, ThreadMain, this, 0, nullptr) : nullptr) {}

WorkerApartment::~WorkerApartment() {
    if (!thread_) return;
    SetEvent(stopEvent_.Get());
    HANDLE thread = thread_.Get();
    DWORD index = 0;
    CoWaitForMultipleHandles(0, INFINITE, 1, &thread, &index);
}

DWORD WINAPI WorkerApartment::ThreadMain(void* self) {
    auto& apartment = *static_cast<WorkerApartment*>(self);
    const HRESULT initialized = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    // Querying for an interface that the proxy does not have connects to the object manager.
    apartment.mainThreadObject_.Get().As<IPersist>();
    WaitForSingleObject(apartment.stopEvent_.Get(), INFINITE);
    apartment.mainThreadObject_ = MarshaledObject();
    if (SUCCEEDED(initialized)) CoUninitialize();
    return 0;
}

}  // namespace tarvik
