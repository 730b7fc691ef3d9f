#pragma once

#include <windows.h>
#include <oaidl.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "page_control/bridge/script_bridge.h"
#include "page_control/bridge/staged_globals.h"
#include "page_control/dialogs/page_dialogs.h"
#include "page_control/engine/shared_engine.h"
#include "page_control/page/response_monitor.h"
#include "page_control/view/page_scale.h"
#include "page_control/view/page_view.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

// The address of a navigation that only runs the `beforeunload` handlers.
inline constexpr const char* kUnloadAddress = "http://unload.invalid/";

struct ScriptError {
    std::wstring message;
    std::wstring url;
    int line = 0;  // from 1
    int column = 0;
};

// Events of a page for its control. Main thread; every handler may close the page.
class PageEvents {
  public:
    virtual ~PageEvents() = default;
    // False cancels the navigation; the current document stays.
    virtual bool OnBeforeNavigate(const std::wstring& url, bool isTop) = 0;
    // The new document exists; its first script waits.
    virtual void OnNavigateComplete(const std::wstring& url, bool isTop) = 0;
    virtual void OnDocumentComplete(const std::wstring& url, bool isTop) = 0;
    virtual void OnNewWindow(const std::wstring& url) = 0;
    virtual void OnWindowClosing() = 0;
    virtual void OnScriptError(const ScriptError& error) = 0;
    virtual void OnContextMenu(POINT screen, IDispatch* element) = 0;
    virtual void OnMouseDown() = 0;
    // The user wants to end the program, because the page does not respond.
    virtual void OnEndProgram() = 0;
    virtual ComPtr<IDispatch> GetExternal() = 0;
};

// The page of one control: a target of the engine, the script of its document, and its view in a window.
// If the engine is missing, the engine or the page has crashed, or there is nothing to show, the window shows
// a notice with a button that tries again, as Reload does. A notice also asks what to do with a page that
// does not respond.
class Page : public ScriptContextDelegate, public std::enable_shared_from_this<Page> {
  public:
    // If text is not selectable, it still is in fields and where the page's styles say so.
    Page(std::shared_ptr<SharedEngine> engine, HWND window, PageEvents& events, bool textIsSelectable);

    void Navigate(const std::wstring& destination);
    void Reload();
    void Stop();
    void GoInHistory(int steps);

    // Runs the document's `beforeunload` handlers, as a navigation does. If they ask, the user decides.
    bool MayUnload();

    // False if the engine or the page has failed, the document is not one of the application, it still waits
    // for its first script while the handlers of the one before are gone, or the page does not respond. May
    // wait to find out.
    bool CanRunScript() override;

    // Fires no event from here on. Calls in progress fail.
    void Close();

    std::wstring Location() const { return location_; }  // of the document; empty before the first one
    // The same; before the first document, where it will be, so that relative paths resolve from the start.
    std::wstring LocationOrDestination() const;
    bool IsLoading() const { return loading_; }
    double Scale() const { return PageScaleOf(window_); }
    // Whether native code is waiting for the engine, for this page or another one.
    bool IsEngineAwaited() const { return target_ && target_->Engine().IsWaiting(); }
    std::shared_ptr<ScriptContext> Context() const { return bridge_ ? bridge_->Context() : nullptr; }
    // The global object of the document. Values written before the first document are applied to it.
    ComPtr<IDispatch> Globals();
    void ListenToMouse();
    void OpenEditMenu(POINT screen);
    void AllowScript(bool allowed);
    DropReceiver* Drops() const { return view_.Drops(); }

    // Handles a message of the window; true if `result` is the return value.
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

  private:
    // ScriptContextDelegate
    void OnDocumentStart() override;
    void OnOpenWindow(const std::wstring& url) override;
    void OnCloseWindow() override { Fire(&PageEvents::OnWindowClosing); }
    void OnContextMenu(POINT screen, IDispatch* element) override {
        Fire(&PageEvents::OnContextMenu,
             POINT{std::lround(screen.x * Scale()), std::lround(screen.y * Scale())}, element);
    }
    Variant OnDialog(const std::string& type, const std::wstring& message,
                     const std::wstring& proposal) override;
    // If the button has been released meanwhile, a drag would never end.
    void OnMouseDown() override {
        if (view_.IsMouseHeld()) Fire(&PageEvents::OnMouseDown);
    }
    void OnNativeCall(bool active) override {
        hasCalled_ = hasCalled_ || active;
        view_.SetInNativeCall(active);
    }

    template <class... Parameters, class... Arguments>
    void Fire(void (PageEvents::*event)(Parameters...), Arguments&&... arguments) {
        if (events_) (events_->*event)(std::forward<Arguments>(arguments)...);
    }

    void Print(const std::wstring& title);
    bool Connect();
    void ShowFailure(const std::wstring& text);
    void ShowNotice(const std::wstring& text, std::function<void()> loadAgain);
    void ShowEmptyPage(bool isError);
    void OnResponse(bool responds);
    void ApplyStagedGlobals(ScriptContext& context);

    // Events of the target. Subscribe connects a handler for the time after Connect.
    template <class Event>
    EventRouter::Subscription Subscribe(PageTarget& target, void (Page::*handler)(const Event& event));
    void SubscribeAll(PageTarget& target);
    void OnRequestPaused(const event::RequestPaused& request);
    void ContinueRequest(const event::RequestPaused& request);
    void FailRequest(const event::RequestPaused& request);
    void OnFrameNavigated(const event::FrameNavigated& navigated);
    void RemoveBlankPageFromHistory(int attempts);
    void OnNavigatedWithin(const event::NavigatedWithinDocument& navigated);
    void OnLoad(const event::LoadEventFired&);
    void OnFrameStopped(const event::FrameStoppedLoading& stopped);
    void OnFrameDetached(const event::FrameDetached& detached);
    void OnEngineDialog(const event::DialogOpening& opening);
    void OnException(const event::ExceptionThrown& exception);
    void OnWindowOpen(const event::WindowOpen& open);
    void OnCrash(const event::TargetCrashed&);
    void OnEngineEnd(const event::Disconnected&);

    const std::shared_ptr<SharedEngine> engine_;
    HWND window_;
    PageEvents* events_;  // null once the page is closed
    std::shared_ptr<PageTarget> target_;
    PageView view_;
    std::unique_ptr<ScriptBridge> bridge_;
    std::unique_ptr<ResponseMonitor> monitor_;  // while there is a target
    std::unique_ptr<PageDialogs> dialogs_;
    std::vector<EventRouter::Subscription> subscriptions_;
    ComPtr<StagedGlobals> staged_ = MakeCom<StagedGlobals>();
    std::wstring location_;
    std::wstring requested_;  // the address of the last navigation from outside
    bool started_ = false;    // NavigateComplete has been fired for the current document
    bool loading_ = false;
    std::map<std::string, std::wstring> frames_;  // addresses of the frames that are being loaded, by id
    bool failed_ = false;
    bool isBlank_ = true;     // whether the target shows no document yet
    bool hasCalled_ = false;  // whether the document's own script has called native code
    bool isEmpty_ = false;    // whether the document is blank or the engine's error page
    bool connecting_ = false;
    bool scriptAllowed_ = true;
    bool printing_ = false;
    bool asksToUnload_ = false;
    std::optional<bool> mayUnload_;  // the answer, if there is one yet
};

}  // namespace tarvik
