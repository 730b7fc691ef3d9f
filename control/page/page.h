#pragma once

#include <windows.h>
#include <oaidl.h>

#include <map>
#include <memory>
#include <string>

#include "tarvik/com_ptr.h"
#include "control/bridge/script_bridge.h"
#include "control/bridge/staged_globals.h"
#include "control/engine/devtools.h"
#include "control/view/page_view.h"

namespace tarvik {

struct ScriptError {
    std::wstring message;
    std::wstring url;
    int line = 0;  // from 1
    int column = 0;
};

// What a page reports to its control. Main thread; any of them may close the page.
class PageEvents {
  public:
    virtual ~PageEvents() = default;
    // False stops the navigation, and the old document stays.
    virtual bool OnBeforeNavigate(const std::wstring& url, bool isTop) = 0;
    // The new document is there, and its first script waits.
    virtual void OnNavigateComplete(const std::wstring& url, bool isTop) = 0;
    virtual void OnDocumentComplete(const std::wstring& url, bool isTop) = 0;
    virtual void OnNewWindow(const std::wstring& url) = 0;
    virtual void OnWindowClosing() = 0;
    virtual void OnScriptError(const ScriptError& error) = 0;
    virtual void OnContextMenu(POINT screen, IDispatch* element) = 0;
    virtual void OnMouseDown() = 0;
    virtual ComPtr<IDispatch> GetExternal() = 0;
};

// The page of one control: a target of the engine, the script of its document, and its picture in a window.
// When the engine is missing, or it or the page has broken down, the window says so, and a click or Reload
// starts anew.
class Page : public WorldOwner, public std::enable_shared_from_this<Page> {
  public:
    // Text that is not selectable by the mouse is so in fields, and where the page says it.
    Page(HWND window, PageEvents& events, bool textIsSelectable);

    void Navigate(const std::wstring& address);
    void Reload();
    void Stop();
    void Travel(int steps);  // in the history

    // No event comes from here on, and everybody who waits for the page fails.
    void Close();

    std::wstring Location() const { return location_; }
    bool IsLoading() const { return loading_; }
    // Native code waits for a page of this process.
    bool IsAnyAwaited() const { return target_ && target_->Engine().IsWaiting(); }
    std::shared_ptr<ScriptWorld> World() const { return bridge_ ? bridge_->World() : nullptr; }
    // The global object of the document; before the first one, what is put there waits for it.
    ComPtr<IDispatch> Globals();
    void ListenToMouse();
    void ShowEditMenu(POINT screen);
    void AllowScript(bool allowed);

    // The window's messages; true if `result` is the answer.
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

  private:
    using Handler = void (Page::*)(const Json& params);

    // WorldOwner
    void OnDocumentStart() override;
    void OnOpenWindow(const std::wstring& url) override;
    void OnCloseWindow() override { Tell(&PageEvents::OnWindowClosing); }
    void OnContextMenu(POINT screen, IDispatch* element) override {
        Tell(&PageEvents::OnContextMenu, screen, element);
    }
    Variant OnDialog(const std::string& type, const std::wstring& message,
                     const std::wstring& proposal) override;
    // A press that is over by the time the page tells of it would begin a drag that nothing ends.
    void OnMouseDown() override {
        if (view_.IsMouseHeld()) Tell(&PageEvents::OnMouseDown);
    }
    void OnParked(bool parked) override { view_.SetParked(parked); }

    template <class... Parameters, class... Arguments>
    void Tell(void (PageEvents::*event)(Parameters...), Arguments&&... arguments) {
        if (events_) (events_->*event)(std::forward<Arguments>(arguments)...);
    }

    bool Connect();
    void BreakDown(const std::wstring& notice);
    void ApplyStagedGlobals(ScriptWorld& world);

    // Events of the session
    void OnEvent(std::string_view method, const Json& params);
    void OnRequestPaused(const Json& params);
    void OnFrameNavigated(const Json& params);
    void OnNavigatedWithin(const Json& params);
    void OnLoad(const Json& params);
    void OnFrameStopped(const Json& params);
    void OnFrameDetached(const Json& params);
    void OnEngineDialog(const Json& params);
    void OnException(const Json& params);
    void OnWindowOpen(const Json& params);
    void OnCrash(const Json& params);
    void OnEngineEnd(const Json& params);

    HWND window_;
    PageEvents* events_;  // null once the page is closed
    std::unique_ptr<PageTarget> target_;
    PageView view_;
    std::unique_ptr<ScriptBridge> bridge_;
    ComPtr<StagedGlobals> staged_ = MakeCom<StagedGlobals>();
    std::wstring location_;
    std::wstring wanted_;   // where the last navigation from outside went
    bool started_ = false;  // the document that is there has told its start
    bool loading_ = false;
    std::map<std::string, std::wstring> frames_;  // by id, the addresses of those that are being loaded
    bool broken_ = false;
    bool connecting_ = false;
    bool scriptAllowed_ = true;
};

}  // namespace tarvik
