// The control through its published interfaces, in a window that hosts OLE controls.

#include <exdisp.h>
#include <exdispid.h>
#include <mshtml.h>

#include "atl/ax_host.h"
#include "atl/ax_window.h"
#include "atl/event_sink.h"
#include "page_control/page/register.h"
#include "tarvik/properties.h"
#include "tarvik/text.h"
#include "tests/support/screen.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

std::wstring NameIn(const VARIANT& url) {
    const std::wstring text(Bstr::View(url.bstrVal));
    return text.substr(text.rfind(L'/') + 1);
}

// Records the control's events and cancels navigations to "no.html".
class Events {
  public:
    void OnEvent(DISPID id, const DISPPARAMS& parameters) {
        ids.push_back(id);
        if (id == DISPID_NEWWINDOW3) newWindows.push_back(NameIn(parameters.rgvarg[0]));
        if (id == DISPID_DOCUMENTCOMPLETE) {
            ++complete;
            const Variant own = ReadScriptProperty(parameters.rgvarg[1].pdispVal, L"LocationURL");
            completed.push_back(NameIn(*parameters.rgvarg[0].pvarVal) + L" of " + NameIn(own));
        }
        if (id != DISPID_BEFORENAVIGATE2) return;
        ASSERT_EQ(parameters.cArgs, 7u);
        const VARIANT& url = *parameters.rgvarg[5].pvarVal;
        const bool stop = std::wstring(Bstr::View(url.bstrVal)).find(L"no.html") != std::wstring::npos;
        if (stop) *parameters.rgvarg[0].pboolVal = VARIANT_TRUE;
    }
    std::vector<DISPID> ids;
    int complete = 0;
    std::vector<std::wstring> completed;
    std::vector<std::wstring> newWindows;
};

class Control : public testing::Test {
  protected:
    Control() { SetEnvironmentVariableW(L"TARVIK_ENGINE", L"chromium"); }
    ~Control() override { SetEnvironmentVariableW(L"TARVIK_ENGINE", nullptr); }

    void Host(const std::string& html) {
        class_.emplace();
        AtlAxWinInit();
        window_ = CreateWindowExW(0, kAxWindowClass, L"container", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20,
                                  500, 400, nullptr, nullptr, nullptr, nullptr);
        ASSERT_TRUE(window_);
        sink_ = MakeCom<EventSink<Events>>(&events_, DIID_DWebBrowserEvents2);
        ComPtr<IUnknown> control;
        const auto site = MakeCom<CAxHostWindow>();
        ASSERT_THAT(
            site->CreateControlLicEx(folder_.Write(L"page.html", html).c_str(), window_, nullptr,
                                     control.GetAddressOf(), DIID_DWebBrowserEvents2, sink_.Get(), nullptr),
            HasStatus(S_OK));
        browser_ = Query<IWebBrowser2>(control.Get());
        ASSERT_TRUE(browser_);
        ASSERT_TRUE(PumpUntil([this] { return events_.complete >= 1; }, std::chrono::seconds(20)));
    }

    void TearDown() override {
        browser_.Reset();
        if (window_) DestroyWindow(window_);
        PumpOnce();
        if (sink_) sink_->Detach();
        sink_.Reset();
        class_.reset();
        EXPECT_EQ(detail::liveComObjects, before_);
    }

    void Open(const wchar_t* name) {
        Variant url = Variant::Text(folder_ / name), none;
        ASSERT_THAT(browser_->Navigate2(&url, &none, &none, &none, &none), HasStatus(S_OK));
    }

    ComPtr<IHTMLDocument2> Document() const {
        ComPtr<IDispatch> document;
        browser_->get_Document(document.GetAddressOf());
        return Query<IHTMLDocument2>(document.Get());
    }

    Variant Evaluate(const wchar_t* text) const {
        ComPtr<IHTMLWindow2> window;
        Document()->get_parentWindow(window.GetAddressOf());
        const Bstr code(text);
        Variant value;
        EXPECT_THAT(window->execScript(code.Get(), nullptr, &value), HasStatus(S_OK));
        return value;
    }

    // The innermost window, found as other programs find it.
    HWND Server() const { return InnermostWindow(window_); }

    const long before_ = detail::liveComObjects;
    const TempFolder folder_;
    Events events_;
    HWND window_ = nullptr;
    std::optional<PageControlClass> class_;
    ComPtr<EventSink<Events>> sink_;
    ComPtr<IWebBrowser2> browser_;
};

TEST_F(Control, FiresNavigationEventsInOrderAndCancelsNavigations) {
    Host("<title>A title</title>one");
    EXPECT_EQ(ValueText(ReadScriptProperty(browser_.Get(), L"LocationName")), "BSTR A title");
    EXPECT_THAT(events_.ids,
                ElementsAre(DISPID_BEFORENAVIGATE2, DISPID_NAVIGATECOMPLETE2, DISPID_DOCUMENTCOMPLETE));
    Bstr first;
    browser_->get_LocationURL(first.Receive());
    EXPECT_TRUE(first.View().starts_with(L"file:///C:/") && first.View().ends_with(L"/page.html"))
        << Narrow(first.View());

    folder_.Write(L"no.html", "never");
    Open(L"no.html");
    EXPECT_TRUE(PumpUntil([&] { return events_.ids.size() == 4; }));
    Bstr still;
    browser_->get_LocationURL(still.Receive());
    EXPECT_EQ(still.View(), first.View());

    folder_.Write(L"a b#\u00e9.html", "two");
    Variant url = Variant::Text(L"file:///" + (folder_ / L"a b%23%C3%A9.html")), none;
    browser_->Navigate2(&url, &none, &none, &none, &none);
    EXPECT_TRUE(PumpUntil([&] { return events_.complete == 2; }));
    EXPECT_EQ(ValueText(Evaluate(L"document.body.textContent")), "BSTR two");
}

TEST_F(Control, FiresEventsOfFrames) {
    folder_.Write(L"inner.html", "inside");
    Host("<iframe src='inner.html'></iframe><iframe id='late' src='no.html'></iframe>");
    EXPECT_TRUE(PumpUntil([&] { return events_.complete >= 2; }));
    EXPECT_THAT(events_.completed, ElementsAre(L"inner.html of inner.html", L"page.html of page.html"));
    folder_.Write(L"late.html", "later");
    Evaluate(L"late.src = 'no.html'");
    Evaluate(L"setTimeout(function () { late.src = 'late.html'; }, 100)");
    EXPECT_TRUE(PumpUntil([&] { return events_.complete >= 3; }));
    EXPECT_EQ(events_.completed.back(), L"late.html of late.html");
}

// The middle button, a modifier key with the left one, or an address of another program, for which the engine
// would open a dialog that takes all input.
TEST_F(Control, FiresNewWindowForLinksThatLeaveThePage) {
    Host(
        "<style>a { position: absolute; left: 0; width: 99px; height: 20px; }</style>"
        "<a href='one.html' style='top: 0'><b>One</b></a>"
        "<a href='two.html' style='top: 20px' onclick='event.stopPropagation()'>Two</a>"
        "<a href='prevented.html' style='top: 40px' onclick='return false'>Prevented</a>"
        "<a href='blank.html' target='_blank' style='top: 60px'>Blank</a>"
        "<a href='mailto:a@b.invalid' style='top: 80px'>Mail</a>"
        "<a onclick='location = \"other-program:1\"' style='top: 100px'>Program</a>");
    const auto click = [this](int y, UINT press, int key) {
        BYTE keys[256] = {};
        if (key) keys[key] = 0x80;
        SetKeyboardState(keys);
        SendMessageW(Server(), press, 0, MAKELPARAM(10, y));
        SendMessageW(Server(), press + 1, 0, MAKELPARAM(10, y));
        keys[key] = 0;
        SetKeyboardState(keys);
    };
    struct {
        int y;
        UINT press;
        int key;
        const wchar_t* opened;
    } const kClicks[] = {
        {10, WM_LBUTTONDOWN, VK_CONTROL, L"one.html"},  {30, WM_LBUTTONDOWN, VK_CONTROL, L"two.html"},
        {50, WM_LBUTTONDOWN, VK_CONTROL, nullptr},      {30, WM_MBUTTONDOWN, 0, L"two.html"},
        {90, WM_LBUTTONDOWN, 0, L"mailto:a@b.invalid"}, {110, WM_LBUTTONDOWN, 0, L"other-program:1"},
        {70, WM_LBUTTONDOWN, 0, L"blank.html"},
    };
    std::vector<std::wstring> expected;
    for (const auto& [y, press, key, opened] : kClicks) {
        click(y, press, key);
        if (opened) expected.emplace_back(opened);
        EXPECT_TRUE(PumpUntil([&] { return events_.newWindows.size() == expected.size(); }));
    }
    EXPECT_EQ(events_.newWindows, expected);
    EXPECT_EQ(events_.complete, 1) << "the page stays";
}

}  // namespace
}  // namespace tarvik
