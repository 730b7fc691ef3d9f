#pragma once

#include <windows.h>
#include <oaidl.h>

#include "base/com_ptr.h"
#include "base/variant.h"
#include "script/options.h"

// The road of every asynchronous member. On the main thread the option object and its callbacks become
// tickets in a parameter object; a worker thread takes it, enters the multi-threaded apartment, redeems the
// tickets, runs the work, calls `success` or `fail`, releases everything and leaves.
namespace tarvik {

// A run as its worker sees it.
struct AsyncTask {
    ComPtr<IDispatch> self;  // the plug-in itself, with no proxy; it lives at least as long as the run
    Options options;         // marshalled: each read is a call into the main thread
    ComPtr<IDispatch> progress;
    ComPtr<IDispatch> success;
    ComPtr<IDispatch> fail;
    Variant context;
};

// A member states its work and the orders in which script sees the arguments of its last callbacks, which
// differ by member on purpose. Both are called only if script gave the function.
struct AsyncMember {
    HRESULT (*work)(const AsyncTask& task);  // may throw; S_OK ends in success
    void (*succeed)(const AsyncTask& task);
    void (*fail)(const AsyncTask& task, HRESULT status);
};

// success(context), the usual order.
void SucceedWithContext(const AsyncTask& task);

// What `work` returns when a cancel shall end the run with neither success nor fail.
inline constexpr HRESULT kEndInSilence = S_FALSE;

// Starts a run and returns at once. `member` outlives the run: a constant of the plug-in. Throws when the
// tickets cannot be made. That the thread could not be started is not reported; then no callback ever comes.
void StartAsync(const AsyncMember& member, IDispatch* self, IDispatch* options);

}  // namespace tarvik
