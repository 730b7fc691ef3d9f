#include "tests/plugins/zip/unzip_fixture.h"

#include "tests/support/waiting.h"

namespace tarvik {

std::string FailText(HRESULT status) {
    return "fail: EMPTY, I4 " + std::to_string(status);
}

void Unzip::TearDown() {
    plugin_.Reset();
    EXPECT_TRUE(PumpUntil([&] { return liveComObjects == objectsBefore_; }));
}

Ending Unzip::Run(const OptionObject& options, Recorder::Answer answer) {
    return RunMember(L"unzip", options, std::move(answer));
}

Ending Unzip::RunMember(const wchar_t* member, const OptionObject& options, Recorder::Answer answer) {
    Ending ending = RunToEnd(plugin_.Get(), member, options, std::move(answer));
    EXPECT_NE(ending.text, "");
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
