#include "host/plugin_manage.h"

#include "atl/ax_window.h"
#include "host/browser_host.h"
#include "host/plugin_registry/plugin_base.h"
#include "host/web_browser.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

// The events of all plug-in objects of the test, with the number of the object.
std::vector<std::string> events;
int created = 0;

class CFake : public TablePlugin<CFake> {
  public:
    static constexpr char kClassName[] = "CFake";
    static std::span<const Member<CFake>> Members() { return {}; }

    STDMETHODIMP Initialize(TVK::ICore*, IUnknown* browser) override {
        return Log(Query<IWebBrowser2>(browser) ? "initialize with browser" : "initialize"), E_FAIL;
    }
    STDMETHODIMP OnNavigateComplete(void*) override { return Log("navigate"), E_FAIL; }
    STDMETHODIMP OnDocumentComplete(void*) override { return Log("document"), E_FAIL; }

  protected:
    void Log(const char* event) { events.push_back(std::to_string(number_) + " " + event); }
    const int number_ = ++created;
};

class CThrowing : public CFake {
  public:
    STDMETHODIMP OnNavigateComplete(void*) override { return Log("throws"), throw 1, S_OK; }
};

HRESULT STDAPICALLTYPE Throwing(REFIID, void**) {
    throw 1;
}

HRESULT STDAPICALLTYPE Broken(REFIID, void** out) {
    *out = nullptr;
    return E_ABORT;
}

[[maybe_unused]] const bool registered = RegisterBuiltIn<CFake>(L"retained", TVK::kRetainedPlugin) &&
                                         RegisterBuiltIn<CFake>(L"alsoRetained", TVK::kRetainedPlugin) &&
                                         RegisterBuiltIn<CFake>(L"transient", TVK::kTransientPlugin) &&
                                         RegisterBuiltIn<CThrowing>(L"throwsLater", TVK::kRetainedPlugin) &&
                                         RegisterPlugin(L"broken", Broken, TVK::kRetainedPlugin) == S_OK &&
                                         RegisterPlugin(L"throwing", Throwing, TVK::kTransientPlugin) == S_OK;

class PluginManage : public testing::Test {
  protected:
    PluginManage() {
        events.clear();
        created = 0;
    }

    DISPID Create(CPluginManage& plugins, const wchar_t* name) {
        EXPECT_THAT(plugins.CreatePlugin(name, nullptr, nullptr, nullptr), HasStatus(S_OK));
        return plugins.GetPluginId(name);
    }

    const long before_ = detail::liveComObjects;
    CPluginManage plugins_;
};

// Creates so many plug-ins that their ids pass those of loadPlugin and createWindow.
TEST_F(PluginManage, SkipsTheIdsOfOtherMembersOfExternal) {
    CPluginManage other;  // the process has one sequence of ids
    DISPID last = Create(plugins_, L"retained");
    EXPECT_LE(last, -6001);
    while (last > -7001) {
        other.Reset();
        const DISPID next = Create(other, L"retained");
        ASSERT_LT(next, last);
        ASSERT_TRUE(next != -6998 && next != -6999);
        last = next;
    }
}

TEST_F(PluginManage, VisitsTheNewestFirst) {
    Create(plugins_, L"retained");
    Create(plugins_, L"transient");
    Create(plugins_, L"throwsLater");
    events.clear();
    plugins_.ForEachPlugin([this](TVK::IPlugin* plugin) {
        plugin->OnNavigateComplete(nullptr);
        plugins_.Reset();  // the window may be closed during a visit
    });
    EXPECT_THAT(events, ElementsAre("3 throws", "1 navigate"));
}

// The object `external` without a window.
class External : public PluginManage {
  protected:
    External() { host_->GetExternal(external_.GetAddressOf()); }

    ComPtr<CWebBrowserHost> host_ = MakeCom<CWebBrowserHost>();
    ComPtr<IDispatch> external_;
};

TEST_F(External, ReturnsPluginsByName) {
    IDispatch* const external = external_.Get();
    DISPID id = 0;
    for (const auto& [name, expected] :
         {std::pair(L"loadPlugin", -6999), std::pair(L"createWindow", -6998)}) {
        EXPECT_THAT(IdOf(external, name, &id), HasStatus(S_OK));
        EXPECT_EQ(id, expected);
    }
    EXPECT_THAT(IdOf(external, L"none", &id), HasStatus(DISP_E_UNKNOWNNAME));
    EXPECT_THAT(IdOf(external, L"broken", &id), HasStatus(E_ABORT));
    EXPECT_THAT(IdOf(external, L"throwing", &id), HasStatus(E_FAIL));
    EXPECT_THAT(IdOf(external, nullptr, &id), HasStatus(E_INVALIDARG));
    EXPECT_EQ(GetText(external, L"retained"), "UNKNOWN");
    EXPECT_EQ(created, 1);
    GetMember(external, L"transient");
    EXPECT_EQ(created, 3) << "the first read creates one object to look up the name and one for script";
    GetMember(external, L"transient");
    EXPECT_EQ(created, 4);
    EXPECT_EQ(CallText(external, L"retained"), StatusText(E_NOTIMPL));
    EXPECT_EQ(GetText(external, L"loadPlugin"), "EMPTY");
    ComPtr<IDispatch> plugin;
    EXPECT_THAT(host_->GetPlugin(L"none", plugin.GetAddressOf()), HasStatus(DISP_E_TYPEMISMATCH));
    EXPECT_THAT(host_->GetPlugin(L"retained", nullptr), HasStatus(E_INVALIDARG));
    host_->Close();
}

TEST_F(External, SendsMissedEventsToLatePlugins) {
    GetMember(external_.Get(), L"retained");
    host_->OnBrowserEvent(252);
    GetMember(external_.Get(), L"alsoRetained");
    EXPECT_THAT(host_->OnBrowserEvent(259), HasStatus(S_OK));
    events.clear();
    GetMember(external_.Get(), L"transient");
    EXPECT_THAT(events, ElementsAre("3 initialize", "3 navigate", "3 document", "4 initialize"));
    events.clear();
    host_->OnBrowserEvent(252);
    host_->OnBrowserEvent(263);
    EXPECT_THAT(events, ElementsAre("2 navigate", "1 navigate"));
    host_->Close();
}

}  // namespace
}  // namespace tarvik
