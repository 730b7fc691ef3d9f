#pragma once

#include <windows.h>
#include <combaseapi.h>

#include <memory>

#include "tarvik/script.h"

// Work on a thread of its own. What a worker is given is copied or moved into it; it touches neither the
// plug-in nor ICore, which are the main thread's.
namespace TVK {

// Takes a script object from the main thread to a worker. There a call of the object runs on the main thread,
// while the worker waits: a function of script sees nothing of the threads. The main thread in turn must
// never wait for a worker.
class Ticket {
  public:
    explicit Ticket(const Object& object) {  // an empty one leads to nothing
        if (object) Check(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, object.Get(), &stream_));
    }
    Ticket(Ticket&& other) noexcept : stream_(std::exchange(other.stream_, nullptr)) {}
    Ticket(const Ticket&) = delete;
    Ticket& operator=(const Ticket&) = delete;
    ~Ticket() { Redeem(); }  // else the reference in it would be lost

    // The object for this thread, once; empty if it has gone.
    Object Redeem() noexcept {
        Ptr<IDispatch> object;
        if (stream_) {
            CoGetInterfaceAndReleaseStream(std::exchange(stream_, nullptr), IID_IDispatch,
                                           reinterpret_cast<void**>(object.GetAddressOf()));
        }
        return Object(object.Get());
    }

  private:
    ::IStream* stream_ = nullptr;
};

namespace detail {

// The library of this code, which must not be freed under a thread that runs in it.
inline HMODULE HoldLibrary(const void* code) {
    HMODULE library = nullptr;
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, static_cast<const wchar_t*>(code),
                            &library))
        ThrowLastError();
    return library;
}

template <class Work>
struct Job {
    Work work;
    HMODULE library;
};

template <class Work>
DWORD WINAPI RunJob(void* given) {
    std::unique_ptr<Job<Work>> job(static_cast<Job<Work>*>(given));
    const HMODULE library = job->library;
    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    Guard([&] { job->work(); });
    job.reset();  // what it holds of script, before the apartment ends
    if (SUCCEEDED(apartment)) CoUninitialize();
    FreeLibraryAndExitThread(library, 0);
}

}  // namespace detail

// Starts the work, a function object, and returns at once. What it throws ends it. The work and all that it
// holds are destroyed on its thread.
template <class Work>
void StartWorker(Work work) {
    auto job = std::make_unique<detail::Job<Work>>(detail::Job<Work>{std::move(work), nullptr});
    job->library = detail::HoldLibrary(reinterpret_cast<const void*>(&detail::RunJob<Work>));
    const HANDLE thread = CreateThread(nullptr, 0, detail::RunJob<Work>, job.get(), 0, nullptr);
    if (!thread) {
        const DWORD error = GetLastError();
        FreeLibrary(job->library);
        throw Failure(HRESULT_FROM_WIN32(error));
    }
    static_cast<void>(job.release());  // the thread owns it, and may have ended by now
    CloseHandle(thread);
}

}  // namespace TVK
