#include "tests/support/async_run.h"

#include <gtest/gtest.h>

#include "base/com_ptr.h"
#include "tests/support/waiting.h"

namespace tarvik {

Ending RunToEnd(IDispatch* plugin, const wchar_t* member, const OptionObject& options,
                Recorder::Answer answer) {
    const auto progress = MakeCom<Recorder>(std::move(answer));
    const auto success = MakeCom<Recorder>();
    const auto fail = MakeCom<Recorder>();
    options.Set(L"progress", progress).Set(L"success", success).Set(L"fail", fail);
    const auto holders = [&] { return fail->AddRef(), fail->Release(); };
    const ULONG before = holders();
    const Outgoing out = CallMember(plugin, member, static_cast<IDispatch*>(options));
    EXPECT_EQ(out.status, S_OK);
    EXPECT_TRUE(PumpUntil([&] { return holders() == before; }, std::chrono::minutes(1)));
    Ending ending;
    ending.result = ValueText(out.value);
    for (const std::string& text : success->Texts())
        ending.text += "success: " + text;
    for (const std::string& text : fail->Texts())
        ending.text += "fail: " + text;
    ending.progress = progress->Texts();
    options.Set(L"progress", nullptr).Set(L"success", nullptr).Set(L"fail", nullptr);
    return ending;
}

}  // namespace tarvik
