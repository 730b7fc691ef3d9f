#include "tests/plugins/zip/unzip_fixture.h"

#include "tests/support/waiting.h"

namespace tarvik {

namespace {

// A run holds the plug-in until after its last callback.
bool NoRunHolds(CZipPlugin* plugin) {
    plugin->AddRef();
    return plugin->Release() == 1;
}

}  // namespace

std::string FailText(HRESULT status) {
    return "fail: EMPTY, I4 " + std::to_string(status);
}

Ending Unzip::Run(OptionObject& options, Recorder::Answer answer) {
    const auto progress = MakeCom<Recorder>(std::move(answer));
    const auto success = MakeCom<Recorder>();
    const auto fail = MakeCom<Recorder>();
    options.Set(L"progress", progress).Set(L"success", success).Set(L"fail", fail);
    EXPECT_EQ(CallMember(plugin_.Get(), L"unzip", static_cast<IDispatch*>(options)).status, S_OK);
    EXPECT_TRUE(PumpUntil([&] { return NoRunHolds(plugin_.Get()); }));
    EXPECT_EQ(success->calls.size() + fail->calls.size(), 1u);
    Ending ending;
    for (const std::string& text : success->Texts())
        ending.text += "success: " + text;
    for (const std::string& text : fail->Texts())
        ending.text += "fail: " + text;
    ending.progress = progress->Texts();
    return ending;
}

OptionObject Unzip::OptionsFor(const std::string& archive) {
    OptionObject options;
    options.Set(L"src", folder_.Write(L"archive.zip", archive).c_str()).Set(L"dest", Dest().c_str());
    return options;
}

Ending Unzip::RunOn(const std::string& archive, Recorder::Answer answer) {
    OptionObject options = OptionsFor(archive);
    return Run(options, std::move(answer));
}

}  // namespace tarvik
