#pragma once

#include <functional>
#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// The folder in which the engine stores what pages store: databases, caches, cookies. Each application has
// its own, %LOCALAPPDATA%\Tarvik\<application's name>, which one process at a time can use. Other processes,
// and those with the environment variable TARVIK_PROFILE set to `temporary`, have a temporary one, which the
// transport creates and removes.
class Profile {
  public:
    // Receives a text for the developer of the application. Any thread.
    using Report = std::function<void(const std::wstring& text)>;

    // Waits a moment for a process that is about to end. Reports why the profile is temporary, unless the
    // variable says so.
    explicit Profile(const Report& report);

    // Empty for a temporary profile.
    std::wstring Folder() const { return isTemporary_ ? std::wstring() : folder_; }
    // Whether to have a temporary profile instead of the folder.
    void SetTemporary(bool temporary) { isTemporary_ = temporary; }

    // Replaces a profile with which the engine does not start by a new one. The old one is kept under another
    // name; Restore takes it back. False if that cannot be the reason.
    bool SetAside();
    void Restore();
    std::wstring DamagedFolder() const { return folder_ + L".damaged"; }

  private:
    bool Open(const std::wstring& folder);

    std::wstring folder_;
    UniqueHandle lock_;
    bool isNew_ = false;
    bool isTemporary_ = false;
};

}  // namespace tarvik
