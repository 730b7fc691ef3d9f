#pragma once

#include "tests/plugins/support/page_core.h"

namespace tarvik {

inline HRESULT SystemError(DWORD error) {
    return HRESULT_FROM_WIN32(error);
}

class File : public PluginOfPage {
  protected:
    File() : PluginOfPage(L"file") {}

    // Calls copyAsync or moveAsync.
    Completion Run(const wchar_t* member, const OptionObject& options,
                   Recorder::Handler progress = {}) const {
        return RunToCompletion(plugin_.Get(), member, options, std::move(progress));
    }
    Completion Run(const wchar_t* member, const std::wstring& src, const std::wstring& dest,
                   bool replaceExisting = false) const;

    // The same path under another root: a move there counts as one between drives.
    static std::wstring OtherRoot(const std::wstring& path) { return L"\\\\?\\" + path; }
};

// A link to a folder, removed by the destructor; none where the system cannot create one. Wine cannot either,
// but it follows links of the Unix host.
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
