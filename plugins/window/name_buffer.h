#pragma once

#include <windows.h>
#include <commdlg.h>

#include <map>
#include <string>
#include <vector>

namespace tarvik {

// The buffer for the result of a file dialog with multiple selection. It grows with the selection.
class NameBuffer {
  public:
    wchar_t* Data() { return buffer_.data(); }
    DWORD Size() const { return static_cast<DWORD>(buffer_.size() - kTypedLength); }

    // Reserves space for the current selection.
    void Fit(HWND dialog);

    // The full paths in the buffer, up to the first that is too long for a path buffer.
    std::vector<std::wstring> Paths() const;

  private:
    // The longest text that can be typed into the dialog, which does not change the selection. Wine writes it
    // without checking the size of the buffer, so the buffer is this much larger than Size().
    static constexpr size_t kTypedLength = 0x8000;

    size_t ExtraLength(const std::wstring& path);

    std::vector<wchar_t> buffer_ = std::vector<wchar_t>(MAX_PATH + kTypedLength);
    std::map<std::wstring, size_t> extraLengths_;  // cached by path
};

}  // namespace tarvik
