#include "plugins/hash/hash_plugin.h"

#include "plugins/hash/hash.h"

namespace tarvik {

namespace {

constexpr Member<CHashPlugin> kMembers[] = {
    Method<&CHashPlugin::Make<CHash<CALG_SHA1>>>(L"sha1", -6999),
    Method<&CHashPlugin::Make<CHash<CALG_MD4>>>(L"md4", -6998),
    Method<&CHashPlugin::Make<CHash<CALG_MD5>>>(L"md5", -6997),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CHashPlugin>(L"hash", TVK::kRetainedPlugin);

}  // namespace

std::span<const Member<CHashPlugin>> CHashPlugin::Members() {
    return kMembers;
}

template <class Hash>
HRESULT CHashPlugin::Make(const Call& call) {
    if (!call.Result()) return E_NOTIMPL;
    return SetResult(call.Result(), Variant::Object(MakeCom<Hash>().Get()));
}

}  // namespace tarvik
