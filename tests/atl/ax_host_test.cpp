// The site with the system's own control, in calls of which the window is closed, as script of the control's
// page could close it.

#include "atl/ax_host.h"

#include <exdisp.h>
#include <exdispid.h>

#include <functional>

#include "atl/ax_window.h"
#include "atl/event_sink.h"
#include "tests/support/control_class.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

// A control that a test is told of before it gets a verb or an extent; true ends the call there. All its
// other faces are those of the control inside.
class WatchedControl : public ComObject<IOleObject> {
  public:
    using Watch = std::function<bool(const char* call)>;
    WatchedControl(ComPtr<IUnknown> inside, Watch watch)
        : inside_(std::move(inside)), object_(Query<IOleObject>(inside_.Get())), watch_(std::move(watch)) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const HRESULT status = ComObject::QueryInterface(iid, out);
        return status == E_NOINTERFACE ? inside_->QueryInterface(iid, out) : status;
    }
    STDMETHODIMP SetClientSite(IOleClientSite* site) override { return object_->SetClientSite(site); }
    STDMETHODIMP GetClientSite(IOleClientSite** site) override { return object_->GetClientSite(site); }
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP Close(DWORD save) override { return object_->Close(save); }
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
    STDMETHODIMP DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG index, HWND window,
                        const RECT* rect) override {
        if (watch_(verb == OLEIVERB_UIACTIVATE ? "focus" : "activate")) return E_UNEXPECTED;
        return object_->DoVerb(verb, message, site, index, window, rect);
    }
    STDMETHODIMP EnumVerbs(IEnumOLEVERB**) override { return E_NOTIMPL; }
    STDMETHODIMP Update() override { return E_NOTIMPL; }
    STDMETHODIMP IsUpToDate() override { return E_NOTIMPL; }
    STDMETHODIMP GetUserClassID(CLSID*) override { return E_NOTIMPL; }
    STDMETHODIMP GetUserType(DWORD, LPOLESTR*) override { return E_NOTIMPL; }
    STDMETHODIMP SetExtent(DWORD aspect, SIZE* extent) override {
        return watch_("extent") ? E_UNEXPECTED : object_->SetExtent(aspect, extent);
    }
    STDMETHODIMP GetExtent(DWORD, SIZE*) override { return E_NOTIMPL; }
    STDMETHODIMP Advise(IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP Unadvise(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP EnumAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override {
        return object_->GetMiscStatus(aspect, status);
    }
    STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

  private:
    ComPtr<IUnknown> inside_;
    ComPtr<IOleObject> object_;
    Watch watch_;
};

// "create", "extent", "activate", "navigate" while the control is made, "focus" and "resize" later.
class ControlHost : public testing::TestWithParam<std::string> {
  protected:
    ControlHost() {
        AtlAxWinInit();
        window_ = CreateWindowExW(0, kAxWindowClass, nullptr, WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, nullptr,
                                  nullptr, nullptr, nullptr);
        sink_ = MakeCom<EventSink<ControlHost>>(this, DIID_DWebBrowserEvents2);
    }
    ~ControlHost() override { sink_->Detach(); }
    void SetUp() override { ASSERT_TRUE(window_); }

    ComPtr<IUnknown> MakeControl() {
        Reach("create");
        return MakeCom<WatchedControl>(controls_.SystemControl(), [this](const char* call) {
            return Reach(isMade_ && call == std::string("extent") ? "resize" : call);
        });
    }

    // Whether the window was closed at this moment or before.
    bool Reach(const std::string& moment) {
        if (moment == GetParam() && IsWindow(window_)) DestroyWindow(window_);
        return !IsWindow(window_);
    }

    ControlClass controls_{[this] { return MakeControl(); }};
    HWND window_ = nullptr;
    ComPtr<EventSink<ControlHost>> sink_;
    bool isMade_ = false;

  public:
    void OnEvent(DISPID id, const DISPPARAMS&) {
        if (id == DISPID_BEFORENAVIGATE2) Reach("navigate");
    }
};

TEST_P(ControlHost, OutlivesAWindowThatIsClosedInACall) {
    const long before = liveComObjects;
    {
        const auto site = MakeCom<CAxHostWindow>();
        ComPtr<IUnknown> control;
        const HRESULT status =
            site->CreateControlLicEx(L"about:blank", window_, nullptr, control.GetAddressOf(),
                                     DIID_DWebBrowserEvents2, sink_.Get(), nullptr);
        EXPECT_EQ(SUCCEEDED(status), control != nullptr) << StatusText(status);
        isMade_ = true;
    }
    SetWindowPos(window_, nullptr, 0, 0, 250, 150, SWP_NOMOVE | SWP_NOZORDER);
    SendMessageW(window_, WM_SETFOCUS, 0, 0);
    PumpUntil([&] { return !IsWindow(window_); }, std::chrono::milliseconds(300));
    EXPECT_EQ(IsWindow(window_) != FALSE, GetParam() == "never");
    if (IsWindow(window_)) DestroyWindow(window_);
    PumpOnce();
    EXPECT_EQ(liveComObjects, before) << "the site and the control have gone with the window";
}

INSTANTIATE_TEST_SUITE_P(Moments, ControlHost,
                         testing::Values("never", "create", "extent", "activate", "navigate", "resize",
                                         "focus"));

}  // namespace
}  // namespace tarvik
