#include "control/bridge/script_world.h"

#include "tarvik/status.h"
#include "control/bridge/script_object.h"
#include "control/bridge/script_source.h"

namespace tarvik {

namespace {

constexpr int kWindow = 0;
constexpr std::string_view kQueued = "queued";

}  // namespace

// A task that the page has been given.
struct ScriptWorld::Pending {
    bool done = false;
    bool lost = false;  // the page could not be reached
    Outcome outcome;
};

ScriptWorld::ScriptWorld(PageTarget& target, WorldOwner& owner, std::string core, int context)
    : target_(target), owner_(owner), core_(std::move(core)), context_(context), natives_([this] {
          if (alive_) target_.Post("HeapProfiler.collectGarbage");
      }) {}

ScriptWorld::~ScriptWorld() = default;

void ScriptWorld::End() {
    const auto self = shared_from_this();
    alive_ = false;
    drops_.clear();
    told_.Clear();
    natives_.Clear();
}

ComPtr<IDispatch> ScriptWorld::Window() {
    return Script(kWindow, false);
}

// ---- Script objects that native code holds

ComPtr<IDispatch> ScriptWorld::Script(int number, bool callable) {
    const auto [place, isNew] = scripts_.try_emplace(number, Held{nullptr, 0});
    ++place->second.references;
    if (!isNew) return place->second.object;
    auto made = MakeCom<ScriptObject>(shared_from_this(), number, callable);
    place->second.object = made.Get();
    return made;
}

void ScriptWorld::Forget(int number) {
    const auto found = scripts_.find(number);
    if (found == scripts_.end()) return;
    const int references = found->second.references;
    scripts_.erase(found);
    if (!alive_ || number == kWindow) return;
    drops_.emplace_back(number, references);
    SendDrops();
}

// With the next message, which is not far if the page is at work; else those that have come while the ones
// before were on their way go together.
void ScriptWorld::SendDrops() {
    if (!alive_ || drops_.empty() || dropping_ || openCalls_ > 0 || !pending_.empty()) return;
    dropping_ = true;
    Mention(R"("nothing")");
}

// ---- From host to page

void ScriptWorld::Receive(const Json& message) {
    const auto self = shared_from_this();
    if (!alive_) return;
    const std::string& operation = message.at(0).get_ref<const std::string&>();
    if (operation == "result") return TakeResult(message);
    if (operation == "release") return natives_.Release(message.at(1), message.at(2));
    if (operation == "leaving") {
        leaving_ = true;
        return;
    }
    if (operation == "close") return owner_.OnCloseWindow();
    if (operation == "mousedown") return owner_.OnMouseDown();
    if (operation == "menu") {
        const Variant element = ReadValue(message.at(3));
        return owner_.OnContextMenu({message.at(1), message.at(2)},
                                    element.Is(VT_DISPATCH) ? element.pdispVal : nullptr);
    }
    Serve(operation, message);
}

void ScriptWorld::TakeResult(const Json& message) {
    waits_ = message.at(3).get<bool>();
    const auto found = pending_.find(message.at(1).get<int>());
    if (found == pending_.end()) return;
    const auto pending = found->second;
    pending->outcome = ReadOutcome(message.at(2));
    pending->done = true;
}

bool ScriptWorld::Has(int object, const std::wstring& name) {
    if (openCalls_ == 0) told_.ClearStale();
    const auto known = told_.Ask(object, name);
    if (known != ToldMembers::Answer::kUnknown) return known == ToldMembers::Answer::kThere;
    const unsigned long before = exchanges_;
    Outcome outcome = Run({.name = told_.IsCommon(name) ? "look" : "find",
                           .object = object,
                           .member = ScriptText(name),
                           .reportErrors = false});
    const bool isAll = outcome.kind == Outcome::Kind::kAll;
    const bool isThere = isAll ? outcome.members.contains(name) : outcome.kind != Outcome::Kind::kNone;
    // To see a single value it may have been necessary to run a getter. One that throws has a name all the
    // same.
    if (!isAll) told_.Clear();
    if (outcome.kind == Outcome::Kind::kValue) outcome.members.emplace(name, std::move(outcome.value));
    // While the answer was taken in, the page may have gone or made calls of its own.
    if (alive_ && exchanges_ == before + 1) told_.Tell(object, std::move(outcome.members), outcome.all);
    return isThere;
}

const Variant* ScriptWorld::KnownValue(int object, const std::wstring& name) {
    if (openCalls_ == 0) told_.ClearStale();
    return alive_ ? told_.Value(object, name) : nullptr;
}

void ScriptWorld::CheckReachable() const {
    if (!alive_) throw StatusError(RPC_E_DISCONNECTED);
    if (blocked_) throw StatusError(RPC_E_CALL_REJECTED);
}

ScriptWorld::Outcome ScriptWorld::Run(const Task& task) {
    const auto self = shared_from_this();
    if (std::string_view(task.name) != "find") told_.Clear();
    CheckReachable();
    const auto engine = target_.Share();
    const auto pending = std::make_shared<Pending>();
    const int id = ++lastTask_;
    pending_[id] = pending;
    const std::string call = R"("run",)" + std::to_string(id) + ",\"" + task.name + R"(",["f",)" +
                             std::to_string(task.object) + "]," +
                             (task.member.empty() ? "void 0" : task.member) + ",[" + task.arguments + "]," +
                             (task.reportErrors ? "false" : "true");
    Send(call, [this, pending](std::string_view text) {
        if (text == kQueued) return;
        pending->lost = text.empty();
        if (!text.empty()) pending->outcome = ReadOutcome(Json::parse(text));
        pending->done = true;
    });
    engine->WaitUntil([&] { return pending->done || !alive_; }, INFINITE);
    pending_.erase(id);
    ++exchanges_;
    if (!pending->done || pending->lost) throw StatusError(RPC_E_DISCONNECTED);
    return std::move(pending->outcome);
}

// Nothing that a page which waits should wake for.
void ScriptWorld::Mention(const std::string& arguments) {
    target_.Post("Runtime.evaluate",
                 {{"expression", Put(arguments)}, {"contextId", context_}, {"silent", true}},
                 [self = shared_from_this()](const Json*) {
                     self->dropping_ = false;
                     self->SendDrops();
                 });
}

void ScriptWorld::ListenToMouse() {
    Mention(R"("listen")");
}

// Brings the page something. If it waits it is resumed in the same breath; a resume that comes too early is
// made up for when the evaluation has been answered.
void ScriptWorld::Send(const std::string& call, TextHandler onReply) {
    const bool wakes = std::exchange(waits_, false);
    answering_ += wakes;
    const auto take = [self = shared_from_this(), wakes, onReply = std::move(onReply)](const Json* result) {
        std::string text;
        if (result && !result->contains("exceptionDetails"))
            text = result->at("result").value("value", std::string());
        self->answering_ -= wakes;
        if (text == kQueued) self->owed_ = true;
        if (onReply) onReply(text);
        self->Settle();
    };
    target_.Engine().Together([&] {
        target_.Post("Runtime.evaluate",
                     {{"expression", Put(call)}, {"contextId", context_}, {"returnByValue", true}}, take);
        if (wakes) GoOn();
    });
}

// An expression that brings the page something, with what native code has dropped since.
std::string ScriptWorld::Put(const std::string& arguments) {
    std::string drops;
    for (const auto& [number, references] : std::exchange(drops_, {}))
        drops += (drops.empty() ? "" : ",") + std::to_string(number) + "," + std::to_string(references);
    return core_ + ".put([" + drops + "]," + arguments + ")";
}

// A plain resume has a way of its own into the engine, and would overtake the evaluation that was sent before
// it every third time. Running on to a place that is never reached comes to the same and keeps the order. But
// only a plain resume lets go of the objects that the engine has listed for the pause, everything on the
// stack of it; they would stay as long as the document.
void ScriptWorld::GoOn() {
    if (nowhere_.empty()) return Resume("Debugger.resume", Json::object());
    Resume("Debugger.continueToLocation", {{"location", {{"scriptId", nowhere_}, {"lineNumber", 0}}}});
    target_.Post("Runtime.releaseObjectGroup", {{"objectGroup", "backtrace"}});
}

void ScriptWorld::Resume(std::string_view method, Json params) {
    resuming_ = true;
    target_.Post(method, std::move(params), [self = shared_from_this()](const Json*) {
        self->resuming_ = false;
        self->paused_ = false;  // it was not if this failed
        self->Settle();
    });
}

// A script that never runs.
void ScriptWorld::FindNowhere() {
    target_.Post(
        "Runtime.compileScript",
        {{"expression", "0"}, {"sourceURL", ""}, {"persistScript", true}, {"executionContextId", context_}},
        [self = shared_from_this()](const Json* result) {
            if (result) self->nowhere_ = result->value("scriptId", std::string());
        });
}

// A page parks when it has taken everything; what is queued from now on it does not know of.
void ScriptWorld::OnPaused() {
    paused_ = true;
    leaving_ = false;
    owed_ = false;
    Settle();
}

void ScriptWorld::OnResumed() {
    paused_ = false;
}

// A page that stands still without waiting for an answer goes on: its own `debugger` statement stopped it, or
// a resume came too early. One that waits is woken when something was queued for it.
void ScriptWorld::Settle() {
    if (!alive_ || !target_.Engine().IsOpen() || !paused_) return;
    if (resuming_ || answering_ > 0 || (waits_ && !owed_)) return;
    owed_ = false;
    waits_ = false;
    Resume("Debugger.resume", Json::object());
}

}  // namespace tarvik
