#include "tarvik/async_task.h"

#include "tarvik/properties.h"

namespace tarvik {

AsyncTask::AsyncTask(const Options& options)
    : progress_(options.Function(L"progress").Get()),
      success_(options.Function(L"success").Get()),
      fail_(options.Function(L"fail").Get()),
      context_(options.Value(L"context")) {}

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
    CallScriptFunction(Success(), {&Context()});
}

void AsyncTask::Fail(HRESULT status) {
    if (status == E_ABORT) return;
    const Variant code = Variant::I4(status);
    CallScriptFunction(Failure(), {&code, &Context()});
}

void CallFail(const Options& options, HRESULT status) {
    const Variant code = Variant::I4(status);
    const Variant context = options.Value(L"context");
    CallScriptFunction(options.Function(L"fail").Get(), {&code, &context});
}

}  // namespace tarvik
