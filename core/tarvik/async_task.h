#pragma once

#include <windows.h>
#include <oaidl.h>

#include "tarvik/status.h"
#include "tarvik/options.h"
#include "tarvik/marshaled_object.h"
#include "tarvik/worker.h"

namespace tarvik {

// One run of an asynchronous member: `progress` as often as the work likes, then one `success` or `fail`. The
// functions are called on the main thread, while the worker waits; calls of a page that has gone fail and are
// dropped. A member derives from this, takes what else it needs with it, and states its work.
class AsyncTask : public Worker {
  public:
    HRESULT Run() final;

  protected:
    // On the main thread; a failure throws.
    explicit AsyncTask(const Options& options);

    // On the worker. May throw; S_OK ends in success.
    virtual HRESULT Work() = 0;
    // The last calls. The orders of their arguments differ by member on purpose: scripts are written against
    // them. Usual are success(context) and fail(code, context), and neither after E_ABORT, a cancel.
    virtual void Succeed();
    virtual void Fail(HRESULT status);

    // On the worker: the functions, null if script gave none, and the context value.
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

// Calls fail(code, context) on the main thread.
void CallFail(const Options& options, HRESULT status);

// The main thread's side of members that answer whether their run has started. `make` makes the task from the
// options, and may throw; what fails before the start is told to `fail` at once.
template <class MakeTask>
bool StartTask(IDispatch* object, MakeTask make) {
    if (!object) throw StatusError(E_INVALIDARG);
    const Options options(object);
    const HRESULT status = Guard([&] { return StartWorker(make(options)); });
    if (status != S_OK) CallFail(options, status);
    return status == S_OK;
}

}  // namespace tarvik
