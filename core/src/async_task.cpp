#include "tarvik/async_task.h"

#include "tarvik/properties.h"
#include "tarvik/status.h"

namespace tarvik {

AsyncTask::AsyncTask(const ScriptObject& options)
    : progress_(options.Function(L"progress")),
      success_(options.Function(L"success")),
      fail_(options.Function(L"fail")),
      context_(options.Get(L"context")) {}

HRESULT AsyncTask::Run() {
    const HRESULT status = Guard([&] { return Work(); });
    if (status == S_OK) {
        Succeed();
    } else {
        Fail(status);
    }
    return status;
}

void AsyncTask::Succeed() {
    CallScriptFunction(Success().AsDispatch(), {&Context()});
}

void AsyncTask::Fail(HRESULT status) {
    if (status == E_ABORT) return;
    const Variant code = Variant::I4(status);
    CallScriptFunction(Failure().AsDispatch(), {&code, &Context()});
}

bool detail::ReportStart(const ScriptObject& options, HRESULT status) {
    if (status == S_OK) return true;
    const Variant code = Variant::I4(status);
    const Variant context = options.Get(L"context");
    CallScriptFunction(options.Function(L"fail").AsDispatch(), {&code, &context});
    return false;
}

}  // namespace tarvik
