#include "plugins/zip/zip_plugin.h"

#include "plugins/zip/unzip_task.h"
#include "plugins/zip/zip_task.h"

namespace tarvik {

namespace {

[[maybe_unused]] const bool registered = RegisterBuiltIn<CZipPlugin>(L"minizip", TVK::kTransientPlugin);

constexpr SmallMember<CZipPlugin> kMembers[] = {
    {-6999, L"unzip", &CZipPlugin::Unzip},
    {-6998, L"zip", &CZipPlugin::Zip},
};

}  // namespace

std::span<const SmallMember<CZipPlugin>> CZipPlugin::Members() {
    return kMembers;
}

HRESULT CZipPlugin::Unzip(WORD flags, const Call& call) {
    return Start(StartUnzip, flags, call);
}

HRESULT CZipPlugin::Zip(WORD flags, const Call& call) {
    return Start(StartZip, flags, call);
}

HRESULT CZipPlugin::Start(StartRun start, WORD flags, const Call& call) {
    if (!(flags & DISPATCH_METHOD)) return E_NOTIMPL;
    IDispatch* options = nullptr;
    if (call.Count() == 0 || !Read(call.At(0), options) || !options) return E_INVALIDARG;
    return start(this, Options(options));
}

}  // namespace tarvik
