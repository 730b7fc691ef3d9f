#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/com_ptr.h"
#include "plugins/zip/zip_plugin.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/temp_folder.h"

namespace tarvik {

// How a run ended: which of the two callbacks came, with its arguments as text; and every call of `progress`.
struct Ending {
    std::string text;
    std::vector<std::string> progress;
};

std::string FailText(HRESULT status);  // of an archive in a file, with an empty context
inline constexpr char kSuccess[] = "success: EMPTY";

// Calls unzip as script does and pumps messages until the run has ended; exactly one of `success` and
// `fail` must have come.
class Unzip : public testing::Test {
  protected:
    Ending Run(OptionObject& options, Recorder::Answer answer = {});
    // An archive in a file, into Dest().
    Ending RunOn(const std::string& archive, Recorder::Answer answer = {});
    OptionObject OptionsFor(const std::string& archive);
    std::wstring Dest() const { return folder_ / L"out"; }

    TempFolder folder_;
    ComPtr<CZipPlugin> plugin_ = MakeCom<CZipPlugin>();
};

}  // namespace tarvik
