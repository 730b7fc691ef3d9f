#include "plugins/zip/zip_plugin.h"

#include "plugins/zip/unzip_task.h"
#include "plugins/zip/zip_task.h"

namespace tarvik {

namespace {

[[maybe_unused]] const bool registered = RegisterBuiltIn<CZipPlugin>(L"minizip", TVK::kTransientPlugin);

constexpr Member<CZipPlugin> kMembers[] = {
    Method<&CZipPlugin::Unzip>(L"unzip", -6999),
    Method<&CZipPlugin::Zip>(L"zip", -6998),
};
static_assert(IsInOrder(kMembers));

}  // namespace

std::span<const Member<CZipPlugin>> CZipPlugin::Members() {
    return kMembers;
}

HRESULT CZipPlugin::Unzip(const Call& call) {
    return Start(StartUnzip, call);
}

HRESULT CZipPlugin::Zip(const Call& call) {
    return Start(StartZip, call);
}

HRESULT CZipPlugin::Start(StartFunction start, const Call& call) {
    IDispatch* options = nullptr;
    if (call.Count() == 0 || !FromVariant(call.At(0), options) || !options) return E_INVALIDARG;
    return start(this, options);
}

}  // namespace tarvik
