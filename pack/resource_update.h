#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tarvik {

// Changes the icons, the version information and the data of a program in one step. Resources that have a
// string as their name stay unchanged.
class ResourceUpdate {
  public:
    explicit ResourceUpdate(const std::wstring& path);  // all members throw a Failure
    ~ResourceUpdate();
    ResourceUpdate(const ResourceUpdate&) = delete;
    ResourceUpdate& operator=(const ResourceUpdate&) = delete;

    // Replaces the resource in all languages.
    void Set(LPCWSTR type, WORD id, std::span<const std::uint8_t> data);
    void Remove(LPCWSTR type, WORD id);
    std::vector<WORD> Ids(LPCWSTR type) const;  // of those that were there and have not been removed
    void Apply();

    struct Resource {
        LPCWSTR type;
        WORD id;
        WORD language;
    };

  private:
    void Check(BOOL succeeded) const;

    std::wstring path_;
    std::vector<Resource> found_;
    HANDLE update_;  // null after Apply
};

}  // namespace tarvik
