#include "plugins/http/client.h"

#include "host/plugin_registry/plugin_base.h"
#include "plugins/http/download_task.h"

namespace tarvik {

namespace {

constexpr Member<CClientDispatch> kMembers[] = {
    Method<&CClientDispatch::DownloadToFile>(-9900, L"downloadToFile"),
    Constant<CClientDispatch, S_OK>(-9899, L"S_OK"),
    Constant<CClientDispatch, E_ABORT>(-9898, L"E_ABORT"),
    Constant<CClientDispatch, E_ACCESSDENIED>(-9897, L"E_ACCESSDENIED"),
    Constant<CClientDispatch, __HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)>(-9896, L"E_FILENOTFOUND"),
};
static_assert(IsInOrder(kMembers));

std::wstring RequiredText(const Options& options, const wchar_t* name) {
    std::wstring text = options.Text(name).value_or(std::wstring());
    if (text.empty()) throw StatusError(E_INVALIDARG);
    return text;
}

}  // namespace

std::span<const Member<CClientDispatch>> CClientDispatch::Members() {
    return kMembers;
}

bool CClientDispatch::DownloadToFile(IDispatch* options) {
    return StartTask(options, [this](const Options& given) {
        std::wstring path = ResolvePath(core_.Get(), RequiredText(given, L"destPath"));
        return std::make_unique<DownloadTask>(RequiredText(given, L"url"), std::move(path), given);
    });
}

}  // namespace tarvik
