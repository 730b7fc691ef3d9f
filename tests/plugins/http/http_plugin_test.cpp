#include "app/log/log.h"
#include "tarvik/properties.h"
#include "tests/plugins/http/http_fixture.h"

namespace tarvik {
namespace {

TEST_F(Http, CreatesClientsWithStatusConstants) {
    const auto client = NewClient();
    EXPECT_EQ(ResultText(GetMember(client.Get(), L"S_OK")), "I4 0");
    EXPECT_EQ(ResultText(GetMember(client.Get(), L"E_ABORT")), "I4 -2147467260");
    EXPECT_EQ(ResultText(GetMember(client.Get(), L"E_ACCESSDENIED")), "I4 -2147024891");
    EXPECT_EQ(ResultText(GetMember(client.Get(), L"E_FILENOTFOUND")), "I4 -2147024894");
    EXPECT_THAT(CallMember(client.Get(), L"S_OK").status, HasStatus(E_NOTIMPL));
    ComPtr<IUnknown> other;
    EXPECT_THAT(
        client->QueryInterface(__uuidof(TVK::IPlugin), reinterpret_cast<void**>(other.GetAddressOf())),
        HasStatus(E_NOTIMPL));
}

TEST_F(Http, RejectsInvalidCalls) {
    EXPECT_THAT(CallMember(plugin_.Get(), L"createClient", 1).status, HasStatus(E_NOTIMPL));
    EXPECT_THAT(GetMember(plugin_.Get(), L"createXmlHttp").status, HasStatus(E_NOTIMPL));

    DISPPARAMS none = {};
    DebugChannel channel;
    const DWORD flags = std::exchange(processLog.flags, kLogError);
    EXPECT_THAT(
        plugin_->Invoke(-10000, IID_NULL, kScriptLocale, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
        HasStatus(S_OK));
    processLog.flags = flags;
    EXPECT_THAT(channel.texts, ElementsAre(EndsWith("CHttpPlugin::CreateClient pResult is NULL.\n")));

    const auto client = NewClient();
    EXPECT_THAT(CallMember(client.Get(), L"downloadToFile", L"http://localhost/").status,
                HasStatus(E_INVALIDARG));
    EXPECT_THAT(CallMember(client.Get(), L"downloadToFile", nullptr).status, HasStatus(E_INVALIDARG));
    EXPECT_THAT(CallMember(client.Get(), L"downloadToFile").status, HasStatus(E_NOTIMPL));
}

TEST_F(Http, CreatesTheRequestsOfTheSystem) {
    const WebServer server(
        [](const WebExchange& exchange) { exchange.Respond("body of " + exchange.Path()); });
    const InvokeResult request = CallMember(plugin_.Get(), L"createXmlHttp");
    ASSERT_EQ(ResultText(request), "DISPATCH");
    CallMember(request.value.pdispVal, L"open", L"GET", server.Url(L"it").c_str(), false);
    CallMember(request.value.pdispVal, L"send");
    EXPECT_EQ(ResultText(GetMember(request.value.pdispVal, L"responseText")), "BSTR body of /it");
}

}  // namespace
}  // namespace tarvik
