#include "page_control/dialogs/download.h"

#include <chrono>

#include "page_control/dialogs/save_file.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

// A copy has the permissions of its new folder.
bool Store(const std::wstring& source, const std::wstring& place) {
    return SUCCEEDED(Guard([&] {
        SaveFile(place, [&](const std::wstring& part) {
            if (!CopyFileW(source.c_str(), part.c_str(), FALSE)) ThrowLastError();
        });
    }));
}

}  // namespace

Download::~Download() {
    Cancel();
}

void Download::SetPlace(HWND owner, std::wstring place) {
    place_ = std::move(place);
    if (state_ == State::kRunning && !complete_ &&
        SUCCEEDED(CoCreateInstance(CLSID_ProgressDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IProgressDialog,
                                   reinterpret_cast<void**>(window_.GetAddressOf())))) {
        window_->SetTitle(L"Download");
        window_->SetLine(1, name_.c_str(), TRUE, nullptr);
        window_->SetLine(2, place_.c_str(), TRUE, nullptr);
        window_->StartProgressDialog(owner, nullptr, PROGDLG_NORMAL | PROGDLG_AUTOTIME | PROGDLG_NOMINIMIZE,
                                     nullptr);
    }
    CopyIfReady();
}

void Download::Cancel() {
    if (copy_.valid()) copy_.wait();
    Poll();
    if (!IsOver()) End(State::kCancelled);
}

void Download::OnProgress(const event::DownloadProgress& progress) {
    if (state_ != State::kRunning) return;
    if (window_ && progress.total > 0)
        window_->SetProgress64(static_cast<ULONGLONG>(progress.received),
                               static_cast<ULONGLONG>(progress.total));
    if (progress.state == "canceled") return End(State::kFailed);
    complete_ = complete_ || progress.state == "completed";
    CopyIfReady();
}

void Download::CopyIfReady() {
    if (state_ != State::kRunning || !complete_ || place_.empty()) return;
    state_ = State::kCopying;
    copy_ = std::async(std::launch::async, Store, source_, place_);
}

void Download::Poll() {
    if (copy_.valid()) {
        if (copy_.wait_for(std::chrono::seconds(0)) == std::future_status::ready)
            End(copy_.get() ? State::kSaved : State::kFailed);
    } else if (state_ == State::kRunning && window_ && window_->HasUserCancelled()) {
        End(State::kCancelled);
    }
}

void Download::End(State state) {
    state_ = state;
    if (window_) window_->StopProgressDialog();
    window_.Reset();
    DeleteFileW(source_.c_str());
}

}  // namespace tarvik
