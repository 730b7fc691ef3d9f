#include "plugins/hash/hash_plugin.h"

#include "plugins/hash/hash.h"

namespace tarvik {

namespace {

constexpr SmallMember<CHashPlugin> kMembers[] = {
    {-6999, L"sha1", &CHashPlugin::Make<CHash<CALG_SHA1>>},
    {-6998, L"md4", &CHashPlugin::Make<CHash<CALG_MD4>>},
    {-6997, L"md5", &CHashPlugin::Make<CHash<CALG_MD5>>},
};

[[maybe_unused]] const bool registered = RegisterBuiltIn<CHashPlugin>(L"hash", TVK::kRetainedPlugin);

}  // namespace

std::span<const SmallMember<CHashPlugin>> CHashPlugin::Members() {
    return kMembers;
}

template <class Hash>
HRESULT CHashPlugin::Make(WORD flags, const Call& call) {
    if (!(flags & DISPATCH_METHOD) || !call.Result()) return E_NOTIMPL;
    return Give(call.Result(), Variant::Object(MakeCom<Hash>().Get()));
}

}  // namespace tarvik
