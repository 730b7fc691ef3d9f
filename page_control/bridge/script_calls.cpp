// Messages from a page's script: calls, most of them of native objects, and notifications.

#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "page_control/bridge/script_context.h"
#include "page_control/bridge/script_source.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr int kMaxDepth = 100;
constexpr HRESULT kOutOfStack = static_cast<HRESULT>(0x800A001C);  // as script engines report it

using protocol::Kind;

std::string ReplyText(protocol::Name<Kind::kReply> name, const Json& call, const std::string& field) {
    return "\"" + std::string(name) + "\"," + call.at(1).dump() + "," + field;
}

std::string ValueReply(const Json& call, const std::string& value = "void 0") {
    return ReplyText("value", call, value);
}

std::string ErrorReply(const Json& call, HRESULT status, const std::wstring& text) {
    return ReplyText("error", call, std::to_string(status) + "," + ScriptText(text));
}

}  // namespace

void ScriptContext::Receive(const Json& message) {
    static constexpr struct {
        protocol::Name<Kind::kCall> name;
        CallHandler handler;
    } kCalls[] = {
        {"start", &ScriptContext::OnStart}, {"get", &ScriptContext::OnGet},
        {"put", &ScriptContext::OnPut},     {"call", &ScriptContext::OnCall},
        {"has", &ScriptContext::OnHas},     {"default", &ScriptContext::OnDefault},
        {"keys", &ScriptContext::OnKeys},   {"delete", &ScriptContext::OnDelete},
        {"open", &ScriptContext::OnOpen},   {"dialog", &ScriptContext::OnDialog},
    };
    static_assert(std::size(kCalls) == protocol::Count(Kind::kCall));
    static constexpr struct {
        protocol::Name<Kind::kNotification> name;
        NotificationHandler handler;
    } kNotifications[] = {
        {"result", &ScriptContext::OnResult},       {"release", &ScriptContext::OnRelease},
        {"unloading", &ScriptContext::OnUnloading}, {"close", &ScriptContext::OnClose},
        {"mousedown", &ScriptContext::OnMouseDown}, {"menu", &ScriptContext::OnMenu},
    };
    static_assert(std::size(kNotifications) == protocol::Count(Kind::kNotification));
    const auto self = shared_from_this();
    if (!alive_) return;
    const std::string_view name = message.at(0).get_ref<const std::string&>();
    for (const auto& [known, handler] : kNotifications) {
        if (known == name) return (this->*handler)(message);
    }
    for (const auto& [known, handler] : kCalls) {
        if (known == name) return HandleCall(handler, message);
    }
}

// A call is [name, id, ...].
void ScriptContext::HandleCall(CallHandler handler, const Json& message) {
    thread_->OnCall();
    members_.Clear();
    if (openCalls_++ == 0) delegate_.OnNativeCall(true);
    std::string reply;
    const HRESULT status = Guard([&] {
        // Each level uses more stack than the one before, in the page and here.
        if (openCalls_ > kMaxDepth) throw StatusError(kOutOfStack);
        reply = (this->*handler)(message);
    });
    members_.Clear();
    if (FAILED(status)) reply = ErrorReply(message, status, ExceptionInfo().Text(status));
    ++exchanges_;
    --openCalls_;
    if (!alive_) return;
    thread_->Send(ReceiveCall(reply), nullptr);
    // Until then, the page would lose events.
    thread_->OnNextResume([weak = weak_from_this()] {
        const auto context = weak.lock();
        if (context && context->alive_ && context->openCalls_ == 0) context->delegate_.OnNativeCall(false);
    });
}

std::string ScriptContext::Reply(const Json& message, HRESULT status, const VARIANT& value,
                                 ExceptionInfo& exception) {
    if (SUCCEEDED(status)) return ValueReply(message, Write(value));
    const HRESULT thrown = exception.Status(status);
    return ErrorReply(message, thrown, exception.Text(thrown));
}

// Script does not know whether a member is a property or a method. A member that refuses to be read, or that
// reads as empty, is a method; only extensible objects have properties that are empty. A member that merely
// fails may be a property that can be read another time.
std::string ScriptContext::OnGet(const Json& message) {
    const int object = message.at(2);
    const std::wstring name = ReadText(message.at(3));
    Variant value;
    ExceptionInfo exception;
    const HRESULT found = natives_.Find({object, name});
    if (found == DISP_E_UNKNOWNNAME) return ValueReply(message);
    if (FAILED(found)) return Reply(message, found, value, exception);
    const HRESULT status = natives_.Read({object, name}, &value, &exception);
    const bool empty = SUCCEEDED(status) && value.Is(VT_EMPTY) && !natives_.IsExtensible(object);
    if (empty || (FAILED(status) && !IsUnreachable(status)))
        return ReplyText("method", message, empty || IsRefusal(status) ? "true" : "false");
    return Reply(message, status, value, exception);
}

std::string ScriptContext::OnPut(const Json& message) {
    ExceptionInfo exception;
    const Variant value = ReadValue(ParsePageValue(message.at(4)));
    const HRESULT status = natives_.Write({message.at(2), ReadText(message.at(3))}, value, &exception);
    return Reply(message, status, Variant(), exception);
}

std::string ScriptContext::OnCall(const Json& message) {
    Variant value;
    ExceptionInfo exception;
    std::vector<Variant> arguments = ReadValues(message.at(4));
    const int object = message.at(2);
    const HRESULT status =
        message.at(3).is_null()
            ? natives_.CallDefault(object, DISPATCH_METHOD, arguments, &value, &exception)
            : natives_.Call({object, ReadText(message.at(3))}, arguments, &value, &exception);
    return Reply(message, status, value, exception);
}

std::string ScriptContext::OnDefault(const Json& message) {
    Variant value;
    ExceptionInfo exception;
    std::vector<Variant> none;
    const HRESULT status =
        natives_.CallDefault(message.at(2), DISPATCH_PROPERTYGET, none, &value, &exception);
    return Reply(message, status, value, exception);
}

std::string ScriptContext::OnHas(const Json& message) {
    return ValueReply(message,
                      SUCCEEDED(natives_.Find({message.at(2), ReadText(message.at(3))})) ? "true" : "false");
}

std::string ScriptContext::OnDelete(const Json& message) {
    ExceptionInfo exception;
    const HRESULT status = natives_.Delete({message.at(2), ReadText(message.at(3))});
    return Reply(message, status, Variant::Bool(status == S_OK), exception);
}

std::string ScriptContext::OnKeys(const Json& message) {
    std::string names;
    for (const std::wstring& name : natives_.Names(message.at(2)))
        names += (names.empty() ? "" : ",") + ScriptText(name);
    return ValueReply(message, TaggedValue("a", "[" + names + "]"));
}

std::string ScriptContext::OnStart(const Json& message) {
    thread_->CompileUnreachableScript();
    std::set<std::wstring> names;
    for (const Json& name : message.at(2))
        names.insert(ReadText(name));
    members_.SetCommonNames(std::move(names));
    delegate_.OnDocumentStart();
    return ValueReply(message);
}

std::string ScriptContext::OnDialog(const Json& message) {
    return ValueReply(
        message, Write(delegate_.OnDialog(message.at(2), ReadText(message.at(3)), ReadText(message.at(4)))));
}

std::string ScriptContext::OnOpen(const Json& message) {
    delegate_.OnOpenWindow(ReadText(message.at(2)));
    return ValueReply(message);
}

// ---- Notifications

void ScriptContext::OnRelease(const Json& message) {
    natives_.Release(message.at(1), message.at(2));
}

void ScriptContext::OnUnloading(const Json&) {
    thread_->OnUnloading();
}

void ScriptContext::OnClose(const Json&) {
    delegate_.OnCloseWindow();
}

void ScriptContext::OnMouseDown(const Json&) {
    delegate_.OnMouseDown();
}

void ScriptContext::OnMenu(const Json& message) {
    const Variant element = ReadValue(ParsePageValue(message.at(3)));
    delegate_.OnContextMenu({message.at(1), message.at(2)},
                            element.Is(VT_DISPATCH) ? element.pdispVal : nullptr);
}

}  // namespace tarvik
