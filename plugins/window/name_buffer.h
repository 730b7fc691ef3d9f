#pragma once

#include <windows.h>
#include <commdlg.h>

#include <map>
#include <string>
#include <vector>

namespace tarvik {

// Where a file dialog that selects several files leaves them: it grows with the selection.
class NameBuffer {
  public:
    wchar_t* Data() { return buffer_.data(); }
    DWORD Size() const { return static_cast<DWORD>(buffer_.size() - kTypedLength); }

    // Makes room for what is selected in the dialog.
    void Fit(HWND dialog);

    // The full paths that the dialog has left, up to the first that is too long for a path buffer.
    std::vector<std::wstring> Paths() const;

  private:
    // What can be typed into the dialog, which is no selection. Wine writes it without a look at the size
    // that it was told, so there is this much more than is told.
    static constexpr size_t kTypedLength = 0x8000;

    size_t GrowthOf(const std::wstring& path);

    std::vector<wchar_t> buffer_ = std::vector<wchar_t>(MAX_PATH + kTypedLength);
    std::map<std::wstring, size_t> growth_;  // of the paths that were looked at
};

}  // namespace tarvik
