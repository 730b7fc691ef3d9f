#include "tests/support/async_run.h"

#include <gtest/gtest.h>

#include "tarvik/com_ptr.h"
#include "tests/support/waiting.h"

namespace tarvik {

AsyncRun::AsyncRun(IDispatch* plugin, const wchar_t* member, const OptionObject& options,
                   Recorder::Answer answer)
    : progress_(MakeCom<Recorder>(std::move(answer))) {
    options.Set(L"progress", progress_).Set(L"success", success_).Set(L"fail", fail_);
    options.Set(L"callback", progress_).Set(L"completed", success_);
    const Outgoing out = CallMember(plugin, member, static_cast<IDispatch*>(options));
    EXPECT_EQ(out.status, S_OK);
    result_ = ValueText(out.value);
    for (const wchar_t* function : {L"progress", L"success", L"fail", L"callback", L"completed"})
        options.Set(function, nullptr);
}

bool AsyncRun::IsOver() const {
    const auto isFree = [](Recorder* function) { return function->AddRef(), function->Release() == 1; };
    return isFree(progress_.Get()) && isFree(success_.Get()) && isFree(fail_.Get());
}

Ending AsyncRun::End() const {
    Ending ending;
    ending.result = result_;
    for (const std::string& text : success_->Texts())
        ending.text += "success: " + text;
    for (const std::string& text : fail_->Texts())
        ending.text += "fail: " + text;
    ending.progress = progress_->Texts();
    return ending;
}

Ending RunToEnd(IDispatch* plugin, const wchar_t* member, const OptionObject& options,
                Recorder::Answer answer) {
    const AsyncRun run(plugin, member, options, std::move(answer));
    EXPECT_TRUE(PumpUntil([&] { return run.IsOver(); }));
    return run.End();
}

}  // namespace tarvik
