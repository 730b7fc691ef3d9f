#include "page_control/bridge/script_context.h"

#include "page_control/bridge/remote_object.h"
#include "page_control/bridge/script_source.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr int kWindow = 0;

using Command = protocol::Name<protocol::Kind::kCommand>;
using TaskName = protocol::Name<protocol::Kind::kTask>;

}  // namespace

// A task that has been sent to the page.
struct ScriptContext::Pending {
    bool done = false;
    bool lost = false;  // the page could not be reached
    Outcome outcome;
};

ScriptContext::ScriptContext(PageTarget& target, ScriptContextDelegate& delegate,
                             const InjectedScript& script, int contextId)
    : target_(target),
      delegate_(delegate),
      script_(script),
      contextId_(contextId),
      thread_(std::make_shared<PageThread>(target, contextId)),
      natives_([this] {
          if (alive_) target_.Post("HeapProfiler.collectGarbage");
      }) {}

ScriptContext::~ScriptContext() = default;

void ScriptContext::End() {
    const auto self = shared_from_this();
    alive_ = false;
    thread_->End();
    releases_.clear();
    members_.Clear();
    natives_.Clear();
}

ComPtr<IDispatch> ScriptContext::Window() {
    return ObjectFor(kWindow, false);
}

// ---- Script objects that native code holds

ComPtr<IDispatch> ScriptContext::ObjectFor(int number, bool callable) {
    const auto [place, isNew] = objects_.try_emplace(number, HeldObject{nullptr, 0});
    ++place->second.references;
    if (!isNew) return place->second.object;
    auto created = MakeCom<RemoteObject>(shared_from_this(), number, callable);
    place->second.object = created.Get();
    return created;
}

void ScriptContext::Release(int number) {
    const auto found = objects_.find(number);
    if (found == objects_.end()) return;
    const int references = found->second.references;
    objects_.erase(found);
    if (!alive_ || number == kWindow) return;
    releases_.emplace_back(number, references);
    SendReleases();
}

// While a call or task is in progress, releases go with its next message. Otherwise those that accumulate
// while a message is in flight are sent together in the next one.
void ScriptContext::SendReleases() {
    if (!alive_ || releases_.empty() || releasing_ || openCalls_ > 0 || !pending_.empty()) return;
    releasing_ = true;
    Notify("release");
}

// ---- From host to page

void ScriptContext::OnResult(const Json& message) {
    thread_->OnResult(message.at(3).get<bool>());
    const auto found = pending_.find(message.at(1).get<int>());
    if (found == pending_.end()) return;
    const auto pending = found->second;
    pending->outcome = ReadOutcome(message.at(2));
    pending->done = true;
}

bool ScriptContext::HasMember(int object, const std::wstring& name) {
    if (openCalls_ == 0) members_.ClearStale();
    const auto known = members_.Lookup(object, name);
    if (known != MemberCache::Result::kUnknown) return known == MemberCache::Result::kPresent;
    const unsigned long before = exchanges_;
    Outcome outcome = Run({.name = members_.IsCommon(name) ? TaskName("findOne") : TaskName("find"),
                           .object = object,
                           .member = ScriptText(name),
                           .reportErrors = false});
    const bool hasAll = outcome.type == Outcome::Type::kMembers;
    const bool isPresent = hasAll ? outcome.members.contains(name) : outcome.type != Outcome::Type::kAbsent;
    // Reading a single value may have run a getter. If that throws, the member exists all the same.
    if (!hasAll) members_.Clear();
    if (outcome.type == Outcome::Type::kValue) outcome.members.emplace(name, std::move(outcome.value));
    // Meanwhile the document may have ended or made calls of its own.
    if (alive_ && exchanges_ == before + 1)
        members_.Store(object, std::move(outcome.members), outcome.isComplete);
    return isPresent;
}

const Variant* ScriptContext::CachedValue(int object, const std::wstring& name) {
    if (openCalls_ == 0) members_.ClearStale();
    return alive_ ? members_.Value(object, name) : nullptr;
}

void ScriptContext::CheckReachable() const {
    if (!alive_) throw StatusError(RPC_E_DISCONNECTED);
    if (dialogOpen_) throw StatusError(RPC_E_CALL_REJECTED);
}

ScriptContext::Outcome ScriptContext::Run(const Task& task) {
    const auto self = shared_from_this();
    if (task.name != TaskName("find")) members_.Clear();
    CheckReachable();
    const auto engine = target_.EnginePointer();
    const auto pending = std::make_shared<Pending>();
    const int id = ++lastTask_;
    pending_[id] = pending;
    const std::string call = "\"" + std::string(Command("run")) + "\"," + std::to_string(id) + ",\"" +
                             std::string(task.name) + "\"," + TaggedValue("f", std::to_string(task.object)) +
                             "," + (task.member.empty() ? "void 0" : task.member) + ",[" + task.arguments +
                             "]," + (task.reportErrors ? "false" : "true");
    thread_->Send(ReceiveCall(call), [self, pending](std::string_view text) {
        pending->lost = text.empty();
        if (!text.empty()) pending->outcome = self->ReadOutcome(Json::parse(text));
        pending->done = true;
    });
    engine->WaitUntil([&] { return pending->done || !alive_; }, INFINITE);
    pending_.erase(id);
    ++exchanges_;
    if (!pending->done || pending->lost) throw StatusError(RPC_E_DISCONNECTED);
    return std::move(pending->outcome);
}

// Sends a message that does not wake a paused page.
void ScriptContext::Notify(Command name) {
    target_.Post("Runtime.evaluate",
                 {{"expression", ReceiveCall("\"" + std::string(name) + "\"")},
                  {"contextId", contextId_},
                  {"silent", true}},
                 [self = shared_from_this()](const Json*) {
                     self->releasing_ = false;
                     self->SendReleases();
                 });
}

void ScriptContext::ListenToMouse() {
    Notify("listen");
}

// An expression that delivers a message and the pending releases.
std::string ScriptContext::ReceiveCall(const std::string& arguments) {
    constexpr protocol::Name<protocol::Kind::kBridgeFunction> kReceive = "receive";
    std::string releases;
    for (const auto& [number, references] : std::exchange(releases_, {}))
        releases += (releases.empty() ? "" : ",") + std::to_string(number) + "," + std::to_string(references);
    return script_.CallText(kReceive, "[" + releases + "]," + arguments);
}

}  // namespace tarvik
