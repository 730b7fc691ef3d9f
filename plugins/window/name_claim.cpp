#include "plugins/window/name_claim.h"

#include <algorithm>

#include "plugins/window/main_subclass.h"
#include "plugins/window/window_marks.h"

namespace tarvik {

namespace {

std::wstring MarkName(const std::wstring& name) {
    return name + L"_UniquePropName";
}

}  // namespace

bool NameClaim::Claim(HWND window, const std::wstring& name) {
    const std::wstring mutexName = name + L"_WndMutex";
    mutex_.Reset();  // its name may be this one
    mutex_ = UniqueHandle(CreateMutexW(nullptr, TRUE, mutexName.c_str()));
    isTaken_ = mutex_ && GetLastError() == ERROR_ALREADY_EXISTS;
    if (mutex_ && !isTaken_) SetMark(window, MarkName(name).c_str(), WindowMark::kOwnsName);
    name_ = name;
    return !isTaken_;
}

bool NameClaim::ShowOwner() const {
    if (!mutex_ || !isTaken_) return false;
    const std::wstring mark = MarkName(name_);
    const auto windows = TopLevelWindows();
    const auto owner = std::ranges::find_if(
        windows, [&](HWND window) { return HasMark(window, mark.c_str(), WindowMark::kOwnsName); });
    if (owner == windows.end() || SendMessageW(*owner, kShowMessage, 0, SW_SHOWNORMAL) != 0) return false;
    SetForegroundWindow(*owner);
    return true;
}

}  // namespace tarvik
