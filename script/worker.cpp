#include "script/worker.h"

#include <combaseapi.h>

#include "base/owners.h"
#include "base/status.h"

namespace tarvik {

namespace {

DWORD WINAPI RunWorker(void* argument) {
    std::unique_ptr<Worker> worker(static_cast<Worker*>(argument));
    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    const HRESULT status = Guard([&] { return worker->Run(); });
    worker.reset();
    if (SUCCEEDED(apartment)) CoUninitialize();
    return static_cast<DWORD>(status);
}

}  // namespace

HRESULT StartWorker(std::unique_ptr<Worker> worker) {
    const UniqueHandle thread(CreateThread(nullptr, 0, RunWorker, worker.get(), 0, nullptr));
    if (!thread) return LastFailureStatus();
    // The thread owns it, and may have ended by now.
    static_cast<void>(worker.release());
    return S_OK;
}

}  // namespace tarvik
