#pragma once

#include <windows.h>
#include <dispex.h>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "page_control/bridge/failure.h"
#include "page_control/bridge/member_cache.h"
#include "page_control/bridge/name_table.h"
#include "page_control/bridge/native_objects.h"
#include "page_control/bridge/page_thread.h"
#include "page_control/bridge/page_value.h"
#include "page_control/engine/devtools.h"
#include "page_control/injected/injected_script.h"
#include "page_control/injected/protocol.h"
#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

class RemoteObject;

// What a page requests besides calls of native objects. Main thread; every method may end the context.
class ScriptContextDelegate {
  public:
    virtual ~ScriptContextDelegate() = default;
    virtual void OnDocumentStart() = 0;  // before the page's first script, which waits
    virtual void OnOpenWindow(const std::wstring& url) = 0;
    virtual void OnCloseWindow() = 0;
    // `type` is "alert", "confirm", "prompt" or "print". Returns the result for script, which waits.
    virtual Variant OnDialog(const std::string& type, const std::wstring& message,
                             const std::wstring& proposal) = 0;
    virtual void OnContextMenu(POINT screen, IDispatch* element) = 0;  // in CSS pixels
    virtual void OnMouseDown() = 0;
    // May wait for the page.
    virtual bool CanRunScript() = 0;
    virtual void OnNativeCall(bool active) = 0;  // the page enters its first native call, or leaves it
};

// The script of one document: calls in both directions, to any depth. While the page waits in a native call,
// a call of script reaches it as a task to run before the reply; an idle page is called from outside. When
// the context ends (another document, a closed window, a dead engine), all calls in progress fail with
// RPC_E_DISCONNECTED, and so does every later use of its objects. Main thread.
class ScriptContext : public std::enable_shared_from_this<ScriptContext> {
  public:
    // `script` has been injected into the execution context `contextId`.
    ScriptContext(PageTarget& target, ScriptContextDelegate& delegate, const InjectedScript& script,
                  int contextId);
    ~ScriptContext();
    ScriptContext(const ScriptContext&) = delete;
    ScriptContext& operator=(const ScriptContext&) = delete;

    int ContextId() const { return contextId_; }
    bool IsAlive() const { return alive_; }
    // Whether a call of the page's script would return. May wait for the page.
    bool CanRunScript() {
        const auto self = shared_from_this();
        return alive_ && delegate_.CanRunScript();
    }
    // Another document is about to replace this one, so the engine no longer pauses the page: its calls of
    // native objects fail, and with them script that relies on them.
    bool IsUnloading() const { return thread_->IsUnloading(); }
    void End();

    void SetExternal(IDispatch* external) {
        if (alive_) natives_.SetExternal(external);
    }
    // While a dialog of the engine blocks the page, calls fail with RPC_E_CALL_REJECTED instead of waiting.
    void SetDialogOpen(bool open) { dialogOpen_ = open; }
    // Reports mouse presses that reach the document's body from now on.
    void ListenToMouse();

    // Events of the engine.
    void Receive(const Json& message);
    void OnPaused() { thread_->OnPaused(); }
    void OnResumed() { thread_->OnResumed(); }

    // The page's global object.
    ComPtr<IDispatch> Window();

    // An operation for the page to run on one of its objects.
    struct Task {
        protocol::Name<protocol::Kind::kTask> name;
        int object = 0;            // the number of a script object
        std::string member;        // JavaScript: a name, or the `this` of a call; empty means undefined
        std::string arguments;     // JavaScript: values separated by commas
        bool reportErrors = true;  // an exception also goes to the page's error handlers
    };
    struct Outcome {
        enum class Type { kValue, kAbsent, kPresent, kMembers, kNames, kError } type = Type::kError;
        Variant value;
        std::vector<std::wstring> names;
        MemberCache::Members members;  // of kMembers
        bool isComplete = false;       // of kMembers: the object has no others
        HRESULT number = E_FAIL;       // of the exception
        std::wstring message;
    };
    // Throws StatusError if the page cannot be called.
    void CheckReachable() const;
    // Runs a task and waits for its outcome. Throws as CheckReachable does, also if the document ends
    // meanwhile.
    Outcome Run(const Task& task);

    // Whether a script object has a member of that name. Throws as Run() does.
    bool HasMember(int object, const std::wstring& name);
    // The value of a member if it is known without a call of the page, or null.
    const Variant* CachedValue(int object, const std::wstring& name);
    NameTable& Names() { return names_; }

    std::string Write(const VARIANT& value);

    // Reads a text as the page encodes it.
    static std::wstring ReadText(const Json& text);

    // Releases the page's references of a script object that has been destroyed.
    void Release(int number);

  private:
    struct Pending;

    // Values
    Variant ReadValue(const PageValue& value);
    std::vector<Variant> ReadValues(const Json& values);
    std::string WriteObject(IUnknown* object);
    ComPtr<IDispatch> ObjectFor(int number, bool callable);

    // Page to host, in script_calls.cpp. Each handler returns the reply as arguments of the page's receive().
    using CallHandler = std::string (ScriptContext::*)(const Json& message);
    void HandleCall(CallHandler handler, const Json& message);
    std::string OnGet(const Json& message);
    std::string OnPut(const Json& message);
    std::string OnCall(const Json& message);
    std::string OnDefault(const Json& message);
    std::string OnHas(const Json& message);
    std::string OnDelete(const Json& message);
    std::string OnKeys(const Json& message);
    std::string OnStart(const Json& message);
    std::string OnOpen(const Json& message);
    std::string OnDialog(const Json& message);
    std::string Reply(const Json& message, HRESULT status, const VARIANT& value, ExceptionInfo& exception);

    using NotificationHandler = void (ScriptContext::*)(const Json& message);
    void OnResult(const Json& message);
    void OnRelease(const Json& message);
    void OnUnloading(const Json& message);
    void OnClose(const Json& message);
    void OnMouseDown(const Json& message);
    void OnMenu(const Json& message);

    // Host to page
    Outcome ReadOutcome(const Json& outcome);
    void ReadMembers(const Json& outcome, Outcome* read);
    void Notify(protocol::Name<protocol::Kind::kCommand> name);
    void SendReleases();
    std::string ReceiveCall(const std::string& arguments);

    PageTarget& target_;
    ScriptContextDelegate& delegate_;
    const InjectedScript& script_;
    const int contextId_;
    const std::shared_ptr<PageThread> thread_;
    bool alive_ = true;
    bool dialogOpen_ = false;
    int openCalls_ = 0;
    unsigned long exchanges_ = 0;  // completed, in both directions

    NativeObjects natives_;
    struct HeldObject {
        RemoteObject* object;  // not owned: its destructor removes the entry
        int references;        // that the page has counted
    };
    std::map<int, HeldObject> objects_;
    std::vector<std::pair<int, int>> releases_;  // numbers of objects and references, still to be sent
    bool releasing_ = false;                     // a message of releases only is in flight
    NameTable names_;
    MemberCache members_;

    std::map<int, std::shared_ptr<Pending>> pending_;
    int lastTask_ = 0;
};

}  // namespace tarvik
