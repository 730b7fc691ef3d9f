#pragma once

#include <string>
#include <vector>

#include "tests/plugins/zip/unzip_fixture.h"

namespace tarvik {

// Calls zip as script does, until the run has ended. What it packs lies below Source().
class Zip : public Unzip {
  protected:
    Ending Pack(const OptionObject& options, Recorder::Answer answer = {}) {
        return RunMember(L"zip", options, std::move(answer));
    }
    OptionObject PackingOf(const std::wstring& source);

    std::wstring Source() const { return folder_ / L"source"; }
    std::wstring Archive() const { return folder_ / L"packed.zip"; }
};

std::string ZipFailText(HRESULT status);  // with an empty context

// The names in an archive, in its own order.
std::vector<std::string> EntryNames(const std::string& archive);

}  // namespace tarvik
