#include "tarvik/worker.h"

#include <combaseapi.h>

#include "tarvik/owners.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

struct Start {
    std::unique_ptr<Worker> worker;
    UniqueModule library;  // with the code of the thread: not to be freed before the thread has ended
};

DWORD RunWorker(std::unique_ptr<Worker> worker) {
    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    const HRESULT status = Guard([&] { return worker->Run(); });
    worker.reset();
    if (SUCCEEDED(apartment)) CoUninitialize();
    return static_cast<DWORD>(status);
}

DWORD WINAPI ThreadProcedure(void* argument) {
    HMODULE library = nullptr;
    DWORD exitCode = 0;
    {
        const std::unique_ptr<Start> start(static_cast<Start*>(argument));
        library = start->library.Detach();
        exitCode = RunWorker(std::move(start->worker));
    }
    FreeLibraryAndExitThread(library, exitCode);
}

UniqueModule ThisLibrary() {
    UniqueModule library;
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                            reinterpret_cast<const wchar_t*>(&ThreadProcedure), library.Receive()))
        ThrowLastError();
    return library;
}

}  // namespace

HRESULT StartWorker(std::unique_ptr<Worker> worker) {
    return Guard([&] {
        auto start = std::make_unique<Start>(Start{std::move(worker), ThisLibrary()});
        const UniqueHandle thread(CreateThread(nullptr, 0, ThreadProcedure, start.get(), 0, nullptr));
        if (!thread) ThrowLastError();
        static_cast<void>(start.release());  // the thread owns it, and may have destroyed it by now
    });
}

}  // namespace tarvik
