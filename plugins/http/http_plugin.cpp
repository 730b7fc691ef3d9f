#include "plugins/http/http_plugin.h"

#include "app/log/log.h"
#include "plugins/http/client.h"

namespace tarvik {

namespace {

constexpr Member<CHttpPlugin> kMembers[] = {
    RawMethod<&CHttpPlugin::CreateClient, 0, 0>(L"createClient", -10000),
    RawMethod<&CHttpPlugin::CreateXmlHttp, 0, 0>(L"createXmlHttp", -9999),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CHttpPlugin>(L"http", TVK::kTransientPlugin);

// The system's XMLHttpRequest object.
ComPtr<IDispatch> MakeXmlHttp() {
    CLSID id = {};
    ComPtr<IDispatch> created;
    ThrowIfFailed(CLSIDFromProgID(L"Microsoft.XMLHTTP", &id));
    ThrowIfFailed(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                   reinterpret_cast<void**>(created.GetAddressOf())));
    return created;
}

template <class Make>
HRESULT ReturnNew(const Call& call, const char* label, Make make) {
    if (!call.Result()) {
        TARVIK_ERROR(label, L"pResult is NULL.");
        return S_OK;
    }
    Variant created;
    (void)Guard([&] { created = Variant::Object(make().Get()); });
    return SetResult(call.Result(), std::move(created));
}

}  // namespace

std::span<const Member<CHttpPlugin>> CHttpPlugin::Members() {
    return kMembers;
}

STDMETHODIMP CHttpPlugin::Initialize(TVK::ICore* core, IUnknown* browser) {
    if (!core || !browser) return E_INVALIDARG;
    core_ = core;
    return S_OK;
}

HRESULT CHttpPlugin::CreateClient(const Call& call) {
    return ReturnNew(call, "CHttpPlugin::CreateClient", [this] { return MakeCom<CClientDispatch>(core_); });
}

HRESULT CHttpPlugin::CreateXmlHttp(const Call& call) {
    return ReturnNew(call, "CHttpPlugin::CreateXmlHttp", MakeXmlHttp);
}

}  // namespace tarvik
