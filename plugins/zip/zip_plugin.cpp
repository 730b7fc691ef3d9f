#include "plugins/zip/zip_plugin.h"

#include "plugins/zip/unzip_task.h"

namespace tarvik {

namespace {

[[maybe_unused]] const bool registered = RegisterBuiltIn<CZipPlugin>(L"minizip", TVK::kTransientPlugin);

constexpr SmallMember<CZipPlugin> kMembers[] = {
    {-6999, L"unzip", &CZipPlugin::Unzip},
};

}  // namespace

std::span<const SmallMember<CZipPlugin>> CZipPlugin::Members() {
    return kMembers;
}

HRESULT CZipPlugin::Unzip(WORD flags, const Call& call) {
    if (!(flags & DISPATCH_METHOD)) return E_NOTIMPL;
    IDispatch* options = nullptr;
    if (call.Count() == 0 || !Read(call.At(0), options) || !options) return E_INVALIDARG;
    return StartUnzip(this, Options(options));
}

}  // namespace tarvik
