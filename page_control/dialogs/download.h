#pragma once

#include <windows.h>
#include <shlobj.h>

#include <future>
#include <string>

#include "page_control/engine/events.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

// A file that the engine downloads to its own folder while the user chooses a place for it. When both are
// done, the file is copied there. The destructor cancels it.
class Download {
  public:
    enum class State {
        kRunning,  // the engine downloads it, or the user has not chosen a place
        kCopying,  // to the place
        kSaved,
        kFailed,
        kCancelled,  // by the user
    };

    // `source` is the engine's file.
    Download(std::wstring source, std::wstring name) : source_(std::move(source)), name_(std::move(name)) {}
    ~Download();
    Download(const Download&) = delete;
    Download& operator=(const Download&) = delete;

    const std::wstring& Name() const { return name_; }
    const std::wstring& Place() const { return place_; }
    State CurrentState() const { return state_; }
    bool IsOver() const { return state_ >= State::kSaved; }

    // The user's choice. From now on, a progress window is open until the download is over.
    void SetPlace(HWND owner, std::wstring place);
    // Waits for a copy, which is then too late to cancel.
    void Cancel();

    void OnProgress(const event::DownloadProgress& progress);
    // To be called now and then: a cancel of the user, or the end of the copy, is noticed here.
    void Poll();

  private:
    void CopyIfReady();
    void End(State state);

    const std::wstring source_;
    const std::wstring name_;
    std::wstring place_;
    State state_ = State::kRunning;
    bool complete_ = false;
    ComPtr<IProgressDialog> window_;
    std::future<bool> copy_;
};

}  // namespace tarvik
