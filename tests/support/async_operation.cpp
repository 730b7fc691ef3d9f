#include "tests/support/async_operation.h"

#include <gtest/gtest.h>

#include "tarvik/com_ptr.h"
#include "tests/support/waiting.h"

namespace tarvik {

AsyncOperation::AsyncOperation(IDispatch* plugin, const wchar_t* member, const OptionObject& options,
                               Recorder::Handler handler)
    : progress_(MakeCom<Recorder>(std::move(handler))) {
    options.Set(L"progress", progress_).Set(L"success", success_).Set(L"fail", fail_);
    options.Set(L"callback", progress_).Set(L"completed", success_);
    const InvokeResult out = CallMember(plugin, member, static_cast<IDispatch*>(options));
    EXPECT_EQ(out.status, S_OK);
    result_ = ValueText(out.value);
    for (const wchar_t* function : {L"progress", L"success", L"fail", L"callback", L"completed"})
        options.Set(function, nullptr);
}

bool AsyncOperation::IsComplete() const {
    const auto isFree = [](Recorder* function) { return function->AddRef(), function->Release() == 1; };
    return isFree(progress_.Get()) && isFree(success_.Get()) && isFree(fail_.Get());
}

Completion AsyncOperation::Result() const {
    Completion completion;
    completion.result = result_;
    for (const std::string& text : success_->Texts())
        completion.text += "success: " + text;
    for (const std::string& text : fail_->Texts())
        completion.text += "fail: " + text;
    completion.progress = progress_->Texts();
    return completion;
}

Completion RunToCompletion(IDispatch* plugin, const wchar_t* member, const OptionObject& options,
                           Recorder::Handler handler) {
    const AsyncOperation operation(plugin, member, options, std::move(handler));
    EXPECT_TRUE(PumpUntil([&] { return operation.IsComplete(); }));
    return operation.Result();
}

}  // namespace tarvik
