#include "log_viewer/process_names.h"

#include "base/path.h"
#include "base/text.h"
#include "tarvik/owners.h"

namespace tarvik {

namespace {

std::wstring QueryName(DWORD process) {
    constexpr DWORD kMaxPath = 32'768;
    const UniqueHandle handle(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
    std::wstring path(kMaxPath, L'\0');
    DWORD length = kMaxPath;
    if (!handle || !QueryFullProcessImageNameW(handle.Get(), 0, path.data(), &length)) return {};
    path.resize(length);
    return FileNameOf(path);
}

}  // namespace

// The system reuses ids, so query each time.
const std::wstring& ProcessNames::Of(DWORD process) {
    std::wstring& name = names_[process];
    if (std::wstring now = QueryName(process); !now.empty()) {
        name = std::move(now);
    } else if (name.empty()) {
        name = L"?";
    }
    return name;
}

bool Matches(std::wstring_view nameOrId, DWORD process, std::wstring_view name) {
    return nameOrId == std::to_wstring(process) || EqualsIgnoreCase(nameOrId, name) ||
           EqualsIgnoreCase(std::wstring(nameOrId) + L".exe", name);
}

}  // namespace tarvik
