#include "host/plugin_manage.h"

#include "atl/ax_window.h"
#include "host/browser_host.h"
#include "host/plugin_registry/plugin_base.h"
#include "host/web_browser.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

// Notes what all plug-ins of the test were told, each under its number.
std::vector<std::string> told;
int made = 0;

class CFake : public TablePlugin<CFake> {
  public:
    static constexpr char kClassName[] = "CFake";
    static std::span<const Member<CFake>> Members() { return {}; }

    STDMETHODIMP Initialize(TVK::ICore*, IUnknown* browser) override {
        return Tell(Query<IWebBrowser2>(browser) ? "initialize with browser" : "initialize"), E_FAIL;
    }
    STDMETHODIMP OnNavigateComplete(void*) override { return Tell("navigate"), E_FAIL; }
    STDMETHODIMP OnDocumentComplete(void*) override { return Tell("document"), E_FAIL; }

  protected:
    void Tell(const char* what) { told.push_back(std::to_string(number_) + " " + what); }
    const int number_ = ++made;
};

class CThrowing : public CFake {
  public:
    STDMETHODIMP OnNavigateComplete(void*) override { return Tell("throws"), throw 1, S_OK; }
};

HRESULT STDAPICALLTYPE Throwing(REFIID, void**) {
    throw 1;
}

HRESULT STDAPICALLTYPE Broken(REFIID, void** out) {
    *out = nullptr;
    return E_ABORT;
}

[[maybe_unused]] const bool registered = RegisterBuiltIn<CFake>(L"kept", TVK::kRetainedPlugin) &&
                                         RegisterBuiltIn<CFake>(L"alsoKept", TVK::kRetainedPlugin) &&
                                         RegisterBuiltIn<CFake>(L"fresh", TVK::kTransientPlugin) &&
                                         RegisterBuiltIn<CThrowing>(L"loud", TVK::kRetainedPlugin) &&
                                         RegisterPlugin(L"broken", Broken, TVK::kRetainedPlugin) == S_OK &&
                                         RegisterPlugin(L"throwing", Throwing, TVK::kTransientPlugin) == S_OK;

class PluginManage : public testing::Test {
  protected:
    PluginManage() {
        told.clear();
        made = 0;
    }

    DISPID Create(CPluginManage& plugins, const wchar_t* name) {
        EXPECT_THAT(plugins.CreatePlugin(name, nullptr, nullptr, nullptr), HasStatus(S_OK));
        return plugins.GetPluginId(name);
    }

    const long before_ = liveComObjects;
    CPluginManage plugins_;
};

// More plug-ins than there are numbers before those of loadPlugin and createWindow.
TEST_F(PluginManage, PassesByTheNumbersOfExternalsOwnMembers) {
    CPluginManage other;  // the numbers are of the process
    DISPID last = Create(plugins_, L"kept");
    EXPECT_LE(last, -6001);
    while (last > -7001) {
        other.Reset();
        const DISPID next = Create(other, L"kept");
        ASSERT_LT(next, last);
        ASSERT_TRUE(next != -6998 && next != -6999);
        last = next;
    }
}

TEST_F(PluginManage, VisitsTheNewestFirst) {
    Create(plugins_, L"kept");
    Create(plugins_, L"fresh");
    Create(plugins_, L"loud");
    told.clear();
    plugins_.ForEachPlugin([this](TVK::IPlugin* plugin) {
        plugin->OnNavigateComplete(nullptr);
        plugins_.Reset();  // a window may close in the middle
    });
    EXPECT_THAT(told, ElementsAre("3 throws", "1 navigate"));
}

// The object that pages see, without a window.
class External : public PluginManage {
  protected:
    External() { host_->GetExternal(external_.GetAddressOf()); }

    ComPtr<CWebBrowserHost> host_ = MakeCom<CWebBrowserHost>();
    ComPtr<IDispatch> external_;
};

TEST_F(External, GivesPluginsByName) {
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
    EXPECT_EQ(GetText(external, L"kept"), "UNKNOWN");
    EXPECT_EQ(made, 1);
    GetMember(external, L"fresh");
    EXPECT_EQ(made, 3) << "the first read makes one for the name and one for script";
    GetMember(external, L"fresh");
    EXPECT_EQ(made, 4);
    EXPECT_EQ(CallText(external, L"kept"), StatusText(E_NOTIMPL));
    EXPECT_EQ(GetText(external, L"loadPlugin"), "EMPTY");
    ComPtr<IDispatch> plugin;
    EXPECT_THAT(host_->GetPlugin(L"none", plugin.GetAddressOf()), HasStatus(DISP_E_TYPEMISMATCH));
    EXPECT_THAT(host_->GetPlugin(L"kept", nullptr), HasStatus(E_INVALIDARG));
    host_->Close();
}

TEST_F(External, TellsALatePluginWhatItMissed) {
    GetMember(external_.Get(), L"kept");
    host_->OnBrowserEvent(252);
    GetMember(external_.Get(), L"alsoKept");
    EXPECT_THAT(host_->OnBrowserEvent(259), HasStatus(S_OK));
    told.clear();
    GetMember(external_.Get(), L"fresh");
    EXPECT_THAT(told, ElementsAre("3 initialize", "3 navigate", "3 document", "4 initialize"));
    told.clear();
    host_->OnBrowserEvent(252);
    host_->OnBrowserEvent(263);
    EXPECT_THAT(told, ElementsAre("2 navigate", "1 navigate"));
    host_->Close();
}

}  // namespace
}  // namespace tarvik
