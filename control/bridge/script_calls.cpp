// What a page's script does with native objects.

#include <string>
#include <utility>

#include "tarvik/status.h"
#include "base/text.h"
#include "control/bridge/script_source.h"
#include "control/bridge/script_world.h"

namespace tarvik {

namespace {

constexpr int kDeepest = 100;
constexpr HRESULT kOutOfStack = static_cast<HRESULT>(0x800A001C);  // as script engines report it

std::string ValueFor(const Json& message, const std::string& value = "void 0") {
    return R"("value",)" + message.at(1).dump() + "," + value;
}

std::string FailureFor(const Json& message, HRESULT status, const std::wstring& text) {
    return R"("error",)" + message.at(1).dump() + "," + std::to_string(status) + "," + ScriptText(text);
}

}  // namespace

// Messages are [operation, call, ...].
void ScriptWorld::Serve(const std::string& operation, const Json& message) {
    waits_ = true;
    told_.Clear();
    if (openCalls_++ == 0) owner_.OnParked(true);
    std::string answer;
    const HRESULT status = Guard([&] {
        // Each level costs more than the one before, on both sides.
        if (openCalls_ > kDeepest) throw StatusError(kOutOfStack);
        answer = Answer(operation, message);
    });
    told_.Clear();
    if (FAILED(status)) answer = FailureFor(message, status, ExceptionInfo().Text(status));
    ++exchanges_;
    --openCalls_;
    if (openCalls_ == 0) owner_.OnParked(false);
    if (!alive_) return;
    Send(answer, nullptr);
}

std::string ScriptWorld::Answer(const std::string& operation, const Json& message) {
    using Handler = std::string (ScriptWorld::*)(const Json& message);
    static const std::map<std::string, Handler> kHandlers = {
        {"get", &ScriptWorld::OnGet},   {"put", &ScriptWorld::OnPut},
        {"call", &ScriptWorld::OnCall}, {"default", &ScriptWorld::OnDefault},
        {"has", &ScriptWorld::OnHas},   {"delete", &ScriptWorld::OnDelete},
        {"keys", &ScriptWorld::OnKeys}, {"start", &ScriptWorld::OnStart},
        {"open", &ScriptWorld::OnOpen}, {"dialog", &ScriptWorld::OnDialog},
    };
    const auto found = kHandlers.find(operation);
    return found == kHandlers.end() ? throw StatusError(E_NOTIMPL) : (this->*found->second)(message);
}

std::string ScriptWorld::GiveBack(const Json& message, HRESULT status, const VARIANT& value,
                                  ExceptionInfo& exception) {
    if (SUCCEEDED(status)) return ValueFor(message, Write(value));
    const HRESULT told = exception.Status(status);
    return FailureFor(message, told, exception.Text(told));
}

// Whether a member is a property or a method is not known before. What refuses to be read, or reads as empty,
// is there to be called; only data that script can extend has members that are empty. What just fails may be
// a property that will be there another time.
std::string ScriptWorld::OnGet(const Json& message) {
    const int object = message.at(2);
    const std::wstring name = ReadText(message.at(3));
    Variant value;
    ExceptionInfo exception;
    const HRESULT found = natives_.Find({object, name});
    if (found == DISP_E_UNKNOWNNAME) return ValueFor(message);
    if (FAILED(found)) return GiveBack(message, found, value, exception);
    const HRESULT status = natives_.Read({object, name}, &value, &exception);
    const bool empty = SUCCEEDED(status) && value.Is(VT_EMPTY) && !natives_.IsExtensible(object);
    if (empty || (FAILED(status) && !IsUnreachable(status)))
        return R"("method",)" + message.at(1).dump() + (empty || IsRefusal(status) ? ",true" : ",false");
    return GiveBack(message, status, value, exception);
}

std::string ScriptWorld::OnPut(const Json& message) {
    ExceptionInfo exception;
    const Variant value = ReadValue(message.at(4));
    const HRESULT status = natives_.Write({message.at(2), ReadText(message.at(3))}, value, &exception);
    return GiveBack(message, status, Variant(), exception);
}

std::string ScriptWorld::OnCall(const Json& message) {
    Variant value;
    ExceptionInfo exception;
    std::vector<Variant> arguments = ReadValues(message.at(4));
    const int object = message.at(2);
    const HRESULT status =
        message.at(3).is_null()
            ? natives_.CallDefault(object, DISPATCH_METHOD, arguments, &value, &exception)
            : natives_.Call({object, ReadText(message.at(3))}, arguments, &value, &exception);
    return GiveBack(message, status, value, exception);
}

std::string ScriptWorld::OnDefault(const Json& message) {
    Variant value;
    ExceptionInfo exception;
    std::vector<Variant> none;
    const HRESULT status =
        natives_.CallDefault(message.at(2), DISPATCH_PROPERTYGET, none, &value, &exception);
    return GiveBack(message, status, value, exception);
}

std::string ScriptWorld::OnHas(const Json& message) {
    return ValueFor(message,
                    SUCCEEDED(natives_.Find({message.at(2), ReadText(message.at(3))})) ? "true" : "false");
}

std::string ScriptWorld::OnDelete(const Json& message) {
    ExceptionInfo exception;
    const HRESULT status = natives_.Delete({message.at(2), ReadText(message.at(3))});
    return GiveBack(message, status, Variant::Bool(status == S_OK), exception);
}

std::string ScriptWorld::OnKeys(const Json& message) {
    std::string names;
    for (const std::wstring& name : natives_.Names(message.at(2)))
        names += (names.empty() ? "" : ",") + ScriptText(name);
    return ValueFor(message, R"(["a",[)" + names + "]]");
}

std::string ScriptWorld::OnStart(const Json& message) {
    FindNowhere();
    std::set<std::wstring> names;
    for (const Json& name : message.at(2))
        names.insert(ReadText(name));
    told_.SetCommonNames(std::move(names));
    owner_.OnDocumentStart();
    return ValueFor(message);
}

std::string ScriptWorld::OnDialog(const Json& message) {
    return ValueFor(message,
                    Write(owner_.OnDialog(message.at(2), ReadText(message.at(3)), ReadText(message.at(4)))));
}

std::string ScriptWorld::OnOpen(const Json& message) {
    owner_.OnOpenWindow(ReadText(message.at(2)));
    return ValueFor(message);
}

}  // namespace tarvik
