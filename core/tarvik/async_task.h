#pragma once

#include <windows.h>
#include <oaidl.h>

#include "tarvik/marshaled_object.h"
#include "tarvik/options.h"
#include "tarvik/status.h"
#include "tarvik/worker.h"

namespace tarvik {

// One operation of an asynchronous member, on a worker thread. It reports to functions of the option object:
// `progress` any number of times, then `success` or `fail` once. Each call of a function runs on the main
// thread while the worker waits. A call fails if its page has been destroyed; AsyncTask ignores that.
//
// Derive from this class, copy further arguments into members (script objects as MarshaledObject), and
// implement Work. StartTask or StartWorker starts the operation.
class AsyncTask : public Worker {
  public:
    HRESULT Run() final;

  protected:
    // Reads `progress`, `success`, `fail` and `context`, each of which may be absent. On the main thread.
    // Throws StatusError if an object cannot be marshaled.
    explicit AsyncTask(const Options& options);

    // The work, on the worker thread. A returned S_OK leads to Succeed; any other status, and an exception,
    // leads to Fail.
    virtual HRESULT Work() = 0;

    // The final call: success(context) or fail(status, context). A task that was cancelled returns E_ABORT
    // from Work and calls neither. Override them where scripts expect other arguments.
    virtual void Succeed();
    virtual void Fail(HRESULT status);

    // The functions, null if script passed none, and the context value, VT_EMPTY if script passed none. On
    // the worker thread; the task owns them.
    IDispatch* Progress() { return progress_.Get(); }
    IDispatch* Success() { return success_.Get(); }
    IDispatch* Failure() { return fail_.Get(); }
    virtual const VARIANT& Context() { return context_.Get(); }

  private:
    MarshaledObject progress_;
    MarshaledObject success_;
    MarshaledObject fail_;
    MarshaledValue context_;
};

// Calls fail(status, context) of the option object. On the main thread.
void CallFail(const Options& options, HRESULT status);

// Starts a task for a member that returns whether its operation has started. `make` creates the task from the
// options, std::unique_ptr<Worker>(const Options&), and may throw. If it throws, or no thread can be started,
// `fail` is called at once and the result is false. On the main thread. Throws E_INVALIDARG for a null
// `object`.
template <class MakeTask>
bool StartTask(IDispatch* object, MakeTask make) {
    if (!object) throw StatusError(E_INVALIDARG);
    const Options options(object);
    const HRESULT status = Guard([&] { return StartWorker(make(options)); });
    if (status != S_OK) CallFail(options, status);
    return status == S_OK;
}

}  // namespace tarvik
