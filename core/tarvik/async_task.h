#pragma once

#include <windows.h>
#include <oaidl.h>

#include "tarvik/marshaled_object.h"
#include "tarvik/script_object.h"
#include "tarvik/status.h"
#include "tarvik/worker.h"

namespace tarvik {

// One operation of an asynchronous member, on a worker thread. It reports to functions of the option object:
// `progress` any number of times, then `success` or `fail` once. Each call of a function runs on the main
// thread while the worker waits.
//
// Derive from this class, copy further arguments into members (script objects as MarshaledObject), and
// implement Work. StartTask or StartWorker starts the operation.
class AsyncTask : public Worker {
  public:
    HRESULT Run() final;

  protected:
    // Reads the functions `progress`, `success` and `fail`, and `context`, a value for them. Each may be
    // absent. On the main thread. Throws StatusError if an object cannot be marshaled.
    explicit AsyncTask(const ScriptObject& options);

    // The work, on the worker thread. A returned S_OK leads to Succeed; any other status, and an exception,
    // leads to Fail.
    virtual HRESULT Work() = 0;

    // The final call, on the worker thread: success(context) or fail(status, context), `status` as a signed
    // number. A task that was cancelled returns E_ABORT from Work: then neither is called. Override these
    // where scripts expect other arguments. A call that fails, or an exception, is ignored.
    virtual void Succeed();
    virtual void Fail(HRESULT status);

    // The functions, empty if script passed none, and the context value, VT_EMPTY if script passed none. On
    // the worker thread; the task owns them. To call one of them: Progress()(done, total, Context()).
    const ScriptObject& Progress() { return progress_.Get(); }
    const ScriptObject& Success() { return success_.Get(); }
    const ScriptObject& Failure() { return fail_.Get(); }
    virtual const VARIANT& Context() { return context_.Get(); }

  private:
    MarshaledObject progress_;
    MarshaledObject success_;
    MarshaledObject fail_;
    MarshaledValue context_;
};

namespace detail {

// Whether the task has started. If not, calls fail(status, context) of the options.
bool ReportStart(const ScriptObject& options, HRESULT status);

}  // namespace detail

// Starts a task for a member that returns whether its operation has started. `make` creates the task from the
// options, std::unique_ptr<Worker>(const ScriptObject&), and may throw. If it throws, or if no thread can be
// started, fail(status, context) of the options is called at once and the result is false. On the main
// thread. Throws E_INVALIDARG if `options` is empty.
template <class MakeTask>
bool StartTask(const ScriptObject& options, const MakeTask& make) {
    if (!options) throw StatusError(E_INVALIDARG);
    return detail::ReportStart(options, Guard([&] { return StartWorker(make(options)); }));
}

}  // namespace tarvik
