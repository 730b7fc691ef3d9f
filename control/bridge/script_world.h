#pragma once

#include <windows.h>
#include <dispex.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"
#include "control/bridge/failure.h"
#include "control/bridge/name_table.h"
#include "control/bridge/native_objects.h"
#include "control/bridge/told_members.h"
#include "control/engine/devtools.h"

namespace tarvik {

class ScriptObject;

// What a page asks of its owner besides calls of native objects. Main thread; any of them may end the world.
class WorldOwner {
  public:
    virtual ~WorldOwner() = default;
    virtual void OnDocumentStart() = 0;  // before the page's first script, which waits
    virtual void OnOpenWindow(const std::wstring& url) = 0;
    virtual void OnCloseWindow() = 0;
    // "alert", "confirm" or "prompt"; what script gets from it. The page waits.
    virtual Variant OnDialog(const std::string& type, const std::wstring& message,
                             const std::wstring& proposal) = 0;
    virtual void OnContextMenu(POINT screen, IDispatch* element) = 0;
    virtual void OnMouseDown() = 0;
    virtual void OnParked(bool parked) = 0;  // the page waits in a native call, or goes on
};

// The script of one document, from its start to the next document's: calls in both directions, to any depth.
// While the page waits in a native call, a call of script reaches it as something to do before its answer
// comes; an idle page is called from outside. When the world ends (another document, a closed window, a dead
// engine), all calls under way fail with RPC_E_DISCONNECTED, and so does every later use of its objects. Main
// thread.
class ScriptWorld : public std::enable_shared_from_this<ScriptWorld> {
  public:
    // `core` is the name of the page's end of the bridge in the execution context `context`.
    ScriptWorld(PageTarget& target, WorldOwner& owner, std::string core, int context);
    ~ScriptWorld();
    ScriptWorld(const ScriptWorld&) = delete;
    ScriptWorld& operator=(const ScriptWorld&) = delete;

    int Context() const { return context_; }
    bool IsAlive() const { return alive_; }
    // The engine no longer lets the page wait, because another document is about to take its place: calls of
    // native objects fail in it, and script that relies on them.
    bool IsLeaving() const { return leaving_; }
    void End();

    void SetExternal(IDispatch* external) {
        if (alive_) natives_.SetExternal(external);
    }
    // A dialog of the page's own holds it up: calls fail with RPC_E_CALL_REJECTED instead of waiting for it.
    void SetBlocked(bool blocked) { blocked_ = blocked; }
    // From now on presses of a mouse button that reach the document's body are reported.
    void ListenToMouse();

    // From the engine.
    void Receive(const Json& message);
    void OnPaused();
    void OnResumed();

    // The page's global object.
    ComPtr<IDispatch> Window();

    // Something to do for the page, on one of its objects.
    struct Task {
        const char* name;          // of the tasks of the page's end
        int object = 0;            // the number of a script object
        std::string member;        // JavaScript: a name, or the `this` of a call; empty means undefined
        std::string arguments;     // JavaScript: values with commas between
        bool reportErrors = true;  // an exception is also one of the page, for its error handlers
    };
    struct Outcome {
        enum class Kind { kValue, kNone, kFound, kAll, kNames, kError } kind = Kind::kError;
        Variant value;
        std::vector<std::wstring> names;
        ToldMembers::Members members;  // of kAll
        bool all = false;              // of kAll: there are no others
        HRESULT number = E_FAIL;       // what script threw
        std::wstring message;
    };
    // Throws StatusError when the page cannot be reached.
    void CheckReachable() const;
    // Runs it and waits for its end. Throws as CheckReachable does, also when the page goes meanwhile.
    Outcome Run(const Task& task);

    // Whether a script object has a member of that name, and its value if that is known without an exchange.
    // Throw as Run() does.
    bool Has(int object, const std::wstring& name);
    const Variant* KnownValue(int object, const std::wstring& name);
    NameTable& Names() { return names_; }

    std::string Write(const VARIANT& value);

    // A text as the page writes it.
    static std::wstring ReadText(const Json& text);

    // A script object has gone, and with it the references that the page gave.
    void Forget(int number);

  private:
    struct Pending;
    using TextHandler = std::function<void(std::string_view text)>;

    // Values
    Variant ReadValue(const Json& value);
    std::vector<Variant> ReadValues(const Json& values);
    std::string WriteObject(IUnknown* object);
    ComPtr<IDispatch> Script(int number, bool callable);

    // Page to host, in script_calls.cpp: each answers a call with the arguments of the page's put().
    void Serve(const std::string& operation, const Json& message);
    std::string Answer(const std::string& operation, const Json& message);
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
    std::string GiveBack(const Json& message, HRESULT status, const VARIANT& value, ExceptionInfo& exception);

    // Host to page
    Outcome ReadOutcome(const Json& outcome);
    void ReadMembers(const Json& outcome, Outcome* read);
    void TakeResult(const Json& message);
    void Send(const std::string& arguments, TextHandler onReply);
    void Mention(const std::string& arguments);
    void SendDrops();
    std::string Put(const std::string& arguments);
    void FindNowhere();
    void GoOn();
    void Resume(std::string_view method, Json params);
    void Settle();

    PageTarget& target_;
    WorldOwner& owner_;
    const std::string core_;
    const int context_;
    bool alive_ = true;
    bool leaving_ = false;
    bool blocked_ = false;
    int openCalls_ = 0;
    unsigned long exchanges_ = 0;  // that are completed

    NativeObjects natives_;
    struct Held {
        ScriptObject* object;  // not owned: it takes itself out
        int references;
    };
    std::map<int, Held> scripts_;
    // Numbers that native code no longer needs, and their references.
    std::vector<std::pair<int, int>> drops_;
    bool dropping_ = false;  // some are on their way with nothing else
    NameTable names_;
    ToldMembers told_;

    std::map<int, std::shared_ptr<Pending>> pending_;
    int lastTask_ = 0;

    std::string nowhere_;  // the id of a script that never runs, once there is one

    // What is known of the page's thread.
    bool paused_ = false;    // by the engine's word
    bool waits_ = false;     // parked in a call, or on its way there
    bool owed_ = false;      // parked, with something to do that was queued
    int answering_ = 0;      // evaluations under way that bring a parked page something
    bool resuming_ = false;  // a resume is under way
};

}  // namespace tarvik
