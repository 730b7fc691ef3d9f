#include "pack/resource_update.h"

#include "cli/failure.h"
#include "tarvik/owners.h"

namespace tarvik {

namespace {

BOOL CALLBACK OnLanguage(HMODULE, LPCWSTR type, LPCWSTR name, WORD language, LONG_PTR found) {
    reinterpret_cast<std::vector<ResourceUpdate::Resource>*>(found)->push_back(
        {type, LOWORD(name), language});
    return TRUE;
}

BOOL CALLBACK OnName(HMODULE module, LPCWSTR type, LPWSTR name, LONG_PTR found) {
    if (IS_INTRESOURCE(name)) EnumResourceLanguagesW(module, type, name, OnLanguage, found);
    return TRUE;
}

std::vector<ResourceUpdate::Resource> FindAll(const std::wstring& path) {
    const UniqueModule module(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE));
    if (!module) FailWithLastError(L"The resources of \"" + path + L"\" cannot be read");
    std::vector<ResourceUpdate::Resource> found;
    for (const LPCWSTR type : {RT_ICON, RT_GROUP_ICON, RT_VERSION, RT_RCDATA})
        EnumResourceNamesW(module.Get(), type, OnName, reinterpret_cast<LONG_PTR>(&found));
    return found;
}

}  // namespace

// The resources are listed first, because the file must not be open when the changes are written.
ResourceUpdate::ResourceUpdate(const std::wstring& path)
    : path_(path), found_(FindAll(path)), update_(BeginUpdateResourceW(path.c_str(), FALSE)) {
    Check(update_ != nullptr);
}

ResourceUpdate::~ResourceUpdate() {
    if (update_) EndUpdateResourceW(update_, TRUE);
}

void ResourceUpdate::Set(LPCWSTR type, WORD id, std::span<const std::uint8_t> data) {
    constexpr WORD kLanguage =
        MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);  // the default of resource compilers
    Remove(type, id);
    Check(UpdateResourceW(update_, type, MAKEINTRESOURCEW(id), kLanguage,
                          const_cast<std::uint8_t*>(data.data()), static_cast<DWORD>(data.size())));
}

// The system reports an error if a resource is removed twice.
void ResourceUpdate::Remove(LPCWSTR type, WORD id) {
    std::erase_if(found_, [&](const Resource& resource) {
        if (resource.type != type || resource.id != id) return false;
        Check(UpdateResourceW(update_, type, MAKEINTRESOURCEW(id), resource.language, nullptr, 0));
        return true;
    });
}

std::vector<WORD> ResourceUpdate::Ids(LPCWSTR type) const {
    std::vector<WORD> ids;
    for (const Resource& resource : found_) {
        if (resource.type == type) ids.push_back(resource.id);
    }
    return ids;
}

void ResourceUpdate::Apply() {
    Check(EndUpdateResourceW(std::exchange(update_, nullptr), FALSE));
}

void ResourceUpdate::Check(BOOL succeeded) const {
    if (!succeeded) FailWithLastError(L"The resources of \"" + path_ + L"\" cannot be changed");
}

}  // namespace tarvik
