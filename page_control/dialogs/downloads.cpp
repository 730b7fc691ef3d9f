#include "page_control/dialogs/downloads.h"

#include <shlwapi.h>

#include <utility>

#include "page_control/dialogs/file_dialog.h"
#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr UINT kPollInterval = 100;  // milliseconds
constexpr UINT_PTR kTimer = 1;

}  // namespace

Downloads::Downloads(HWND window, PageTarget& target, DialogQueue& queue, Report report)
    : window_(window),
      target_(target),
      queue_(queue),
      report_(std::move(report)),
      timer_([this](UINT message, WPARAM timer) {
          if (message == WM_TIMER && timer == kTimer) OnTimer();
      }) {
    begin_ = target_.Events().Subscribe<event::DownloadWillBegin>(
        [this](const event::DownloadWillBegin& begin) { OnBegin(begin); });
    progress_ = target_.Events().Subscribe<event::DownloadProgress>(
        [this](const event::DownloadProgress& progress) { OnProgress(progress); });
}

Downloads::~Downloads() {
    for (const auto& [id, download] : downloads_) {
        download->Cancel();
        Finish(id, *download);
    }
}

void Downloads::OnBegin(const event::DownloadWillBegin& begin) {
    const std::wstring source = target_.Engine().DownloadFolder() + L"\\" + Widen(begin.id);
    downloads_[begin.id] = std::make_shared<Download>(source, Widen(begin.name));
    SetTimer(timer_.Get(), kTimer, kPollInterval, nullptr);
    queue_.Add([this, alive = std::weak_ptr(alive_), id = begin.id] {
        if (!alive.expired()) AskForPlace(id);
    });
}

void Downloads::OnProgress(const event::DownloadProgress& progress) {
    if (const auto found = downloads_.find(progress.id); found != downloads_.end())
        found->second->OnProgress(progress);
}

// A download may end, and the page may be closed, while the dialog is open.
void Downloads::AskForPlace(const std::string& id) {
    const auto found = downloads_.find(id);
    if (found == downloads_.end()) return;
    const auto download = found->second;
    const std::weak_ptr<bool> alive = alive_;
    std::vector<std::wstring> places;
    const wchar_t* const extension = PathFindExtensionW(download->Name().c_str());
    FileDialog dialog = {FileDialog::Purpose::kSaveFile, download->Name(), {}};
    if (*extension) dialog.pattern = std::wstring(L"*") + extension;
    const HWND owner = GetAncestor(window_, GA_ROOT);
    (void)Guard([&] { places = ChooseFiles(owner, dialog); });
    if (alive.expired() || download->IsOver()) return;
    places.empty() ? download->Cancel() : download->SetPlace(owner, places.front());
}

void Downloads::OnTimer() {
    const auto downloads = downloads_;
    for (const auto& [id, download] : downloads) {
        download->Poll();
        if (!download->IsOver()) continue;
        downloads_.erase(id);
        Finish(id, *download);
    }
    if (downloads_.empty()) KillTimer(timer_.Get(), kTimer);
}

void Downloads::Finish(const std::string& id, const Download& download) {
    using State = Download::State;
    const std::wstring text = L"The download of \"" + download.Name() + L"\" ";
    switch (download.CurrentState()) {
        case State::kSaved:
            return report_(text + L"is saved as \"" + download.Place() + L"\".");
        case State::kCancelled:
            target_.Engine().Post("", "Browser.cancelDownload", {{"guid", id}});
            return report_(text + L"was cancelled.");
        default:
            report_(text + L"failed.");
            return ShowFailure(download.Name());
    }
}

void Downloads::ShowFailure(const std::wstring& name) {
    queue_.Add([window = window_, name] {
        const std::wstring text = L"\"" + name + L"\" could not be downloaded.";
        MessageBoxW(GetAncestor(window, GA_ROOT), text.c_str(), L"Download", MB_OK | MB_ICONWARNING);
    });
}

}  // namespace tarvik
