#pragma once

#include <gtest/gtest.h>

#include <string>

#include "base/com_ptr.h"
#include "plugins/zip/zip_plugin.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/support/async_run.h"
#include "tests/support/temp_folder.h"

namespace tarvik {

std::string FailText(HRESULT status);  // of an archive in a file, with an empty context
inline constexpr char kSuccess[] = "success: EMPTY";

// Calls unzip as script does and pumps messages until the run has ended; exactly one of `success` and
// `fail` must have come. A run gives everything back at its end.
class Unzip : public testing::Test {
  protected:
    void TearDown() override;

    Ending Run(const OptionObject& options, Recorder::Answer answer = {});
    Ending RunMember(const wchar_t* member, const OptionObject& options, Recorder::Answer answer);
    // An archive in a file, into Dest().
    Ending RunOn(const std::string& archive, Recorder::Answer answer = {});
    OptionObject OptionsFor(const std::string& archive);
    std::wstring Dest() const { return folder_ / L"out"; }

    const long objectsBefore_ = liveComObjects;
    TempFolder folder_;
    ComPtr<CZipPlugin> plugin_ = MakeCom<CZipPlugin>();
};

}  // namespace tarvik
