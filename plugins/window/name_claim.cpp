#include "plugins/window/name_claim.h"

#include <algorithm>

#include "host/plugin_registry/window_numbers.h"
#include "plugins/window/window_properties.h"

namespace tarvik {

namespace {

std::wstring PropertyName(const std::wstring& name) {
    return name + L"_UniquePropName";
}

}  // namespace

bool NameClaim::Claim(HWND window, const std::wstring& name) {
    const std::wstring mutexName = name + L"_WndMutex";
    mutex_.Reset();  // the previous claim may be on the same name
    mutex_ = UniqueHandle(CreateMutexW(nullptr, TRUE, mutexName.c_str()));
    isTaken_ = mutex_ && GetLastError() == ERROR_ALREADY_EXISTS;
    if (mutex_ && !isTaken_) SetWindowProperty(window, PropertyName(name).c_str(), WindowProperty::kOwnsName);
    name_ = name;
    return !isTaken_;
}

bool NameClaim::ShowOwner() const {
    if (!mutex_ || !isTaken_) return false;
    const std::wstring property = PropertyName(name_);
    const auto windows = TopLevelWindows();
    const auto owner = std::ranges::find_if(windows, [&](HWND window) {
        return HasWindowProperty(window, property.c_str(), WindowProperty::kOwnsName);
    });
    if (owner == windows.end() || SendMessageW(*owner, kShowMessage, 0, SW_SHOWNORMAL) != 0) return false;
    SetForegroundWindow(*owner);
    return true;
}

}  // namespace tarvik
