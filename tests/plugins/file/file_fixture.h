#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/com_ptr.h"
#include "base/owners.h"
#include "base/text.h"
#include "plugins/file/file_plugin.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/script_bench.h"
#include "tests/support/status_text.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {

using testing::ElementsAre;
using testing::IsEmpty;

// What a run called, in order: "success: EMPTY", "fail: I4 -2147024894, I4 7"; and each call of `progress`.
struct Ending {
    bool started = false;
    std::vector<std::string> texts;
    std::vector<std::string> progress;
};

std::string FailText(HRESULT status);
inline HRESULT SystemError(DWORD error) {
    return HRESULT_FROM_WIN32(error);
}

// The plug-in of a page that lies in a folder of its own.
class File : public testing::Test {
  protected:
    File();

    // The result of a call that must succeed.
    template <class... Args>
    std::string Ask(const wchar_t* member, Args&&... args) {
        const Outgoing out = CallMember(plugin_.Get(), member, std::forward<Args>(args)...);
        EXPECT_THAT(out.status, HasStatus(S_OK));
        return ValueText(out.value);
    }

    // Calls copyAsync or moveAsync as script does, and pumps messages until the run has let go of everything.
    Ending Run(const wchar_t* member, OptionObject& options, Recorder::Answer progress = {});
    Ending Run(const wchar_t* member, const std::wstring& src, const std::wstring& dest,
               bool replaceExisting = false);

    // The same place by a name with another root: a move to there is one from drive to drive.
    static std::wstring OtherRoot(const std::wstring& path) { return L"\\\\?\\" + path; }

    TempFolder folder_;
    ComPtr<CFilePlugin> plugin_ = MakeCom<CFilePlugin>();
};

// A link to a folder, where the system can make one; it goes with this object. Wine cannot, but sees those of
// the system underneath.
class FolderLink {
  public:
    FolderLink(const std::wstring& link, const std::wstring& target);
    ~FolderLink();
    FolderLink(const FolderLink&) = delete;
    FolderLink& operator=(const FolderLink&) = delete;

    explicit operator bool() const { return FileExists(link_); }

  private:
    std::wstring link_;
};

}  // namespace tarvik
