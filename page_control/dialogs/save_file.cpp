#include "page_control/dialogs/save_file.h"

#include <windows.h>

#include "tarvik/status.h"

namespace tarvik {

void SaveFile(const std::wstring& place, const std::function<void(const std::wstring& part)>& write) {
    const std::wstring part = place + L".part";
    const HRESULT status = Guard([&] {
        write(part);
        if (!MoveFileExW(part.c_str(), place.c_str(), MOVEFILE_REPLACE_EXISTING)) ThrowLastError();
    });
    if (SUCCEEDED(status)) return;
    DeleteFileW(part.c_str());
    throw StatusError(status);
}

}  // namespace tarvik
