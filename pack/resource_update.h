#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tarvik {

// Changes what a program is shown by, its icons and its version information, all at once. Resources that are
// named by a text stay as they are.
class ResourceUpdate {
  public:
    explicit ResourceUpdate(const std::wstring& path);  // this and Apply throw a Failure, as do the changes
    ~ResourceUpdate();
    ResourceUpdate(const ResourceUpdate&) = delete;
    ResourceUpdate& operator=(const ResourceUpdate&) = delete;

    // Takes the place of what is there, in whatever languages.
    void Set(LPCWSTR type, WORD id, std::span<const std::uint8_t> data);
    void Remove(LPCWSTR type, WORD id);
    std::vector<WORD> Ids(LPCWSTR type) const;  // of those that were there and stay
    void Apply();

    struct Resource {
        LPCWSTR type;
        WORD id;
        WORD language;
    };

  private:
    void Check(BOOL good) const;

    std::wstring path_;
    std::vector<Resource> found_;
    HANDLE update_;  // null once it is applied
};

}  // namespace tarvik
