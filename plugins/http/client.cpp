#include "plugins/http/client.h"

#include "host/plugin_registry/plugin_base.h"
#include "plugins/http/download_task.h"

namespace tarvik {

namespace {

constexpr Member<CClientDispatch> kMembers[] = {
    Method<&CClientDispatch::DownloadToFile>(L"downloadToFile", -9900),
    Constant<CClientDispatch, S_OK>(L"S_OK", -9899),
    Constant<CClientDispatch, E_ABORT>(L"E_ABORT", -9898),
    Constant<CClientDispatch, E_ACCESSDENIED>(L"E_ACCESSDENIED", -9897),
    Constant<CClientDispatch, __HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)>(L"E_FILENOTFOUND", -9896),
};
static_assert(IsInOrder(kMembers));

std::wstring RequiredText(const ScriptObject& options, const wchar_t* name) {
    std::wstring text = options.Get<std::wstring>(name, {});
    if (text.empty()) throw StatusError(E_INVALIDARG);
    return text;
}

}  // namespace

std::span<const Member<CClientDispatch>> CClientDispatch::Members() {
    return kMembers;
}

bool CClientDispatch::DownloadToFile(IDispatch* options) {
    return StartTask(options, [this](const ScriptObject& given) {
        std::wstring path = ResolvePath(core_.Get(), RequiredText(given, L"destPath"));
        return std::make_unique<DownloadTask>(RequiredText(given, L"url"), std::move(path), given);
    });
}

}  // namespace tarvik
