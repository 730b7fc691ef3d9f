// Values between the script of a page and native code, as injected/bridge/values.js writes and reads them.

#include <climits>
#include <iterator>
#include <string>
#include <string_view>
#include <variant>

#include "page_control/bridge/remote_object.h"
#include "page_control/bridge/script_context.h"
#include "page_control/bridge/script_source.h"
#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

template <class... Functions>
struct Overloaded : Functions... {
    using Functions::operator()...;
};
template <class... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

}  // namespace

std::wstring ScriptContext::ReadText(const Json& text) {
    const PageValue value = ParsePageValue(text);
    if (const auto* const units = std::get_if<std::wstring>(&value)) return *units;
    return Widen(std::get<std::string_view>(value));
}

Variant ScriptContext::ReadValue(const PageValue& value) {
    return std::visit(
        Overloaded{
            [](UndefinedValue) { return Variant(); }, [](UnreadValue) { return Variant(); },
            [](std::nullptr_t) { return Variant::Null(); }, [](bool truth) { return Variant::Bool(truth); },
            [](std::int32_t number) { return Variant::I4(number); },
            [](double number) { return Variant::R8(number); },
            [](std::int64_t number) { return Variant::I8(number); },
            // Pages use a BigInt to pass an unsigned type, which some members require.
            [](std::uint64_t number) {
                return number <= ULONG_MAX ? Variant::UI4(static_cast<ULONG>(number)) : Variant::UI8(number);
            },
            [](std::string_view text) { return Variant::Text(Widen(text)); },
            [](const std::wstring& text) { return Variant::Text(text); },
            [this](NativeReference native) {
                IUnknown* const object = natives_.Object(native.id);
                const auto dispatch = Query<IDispatch>(object);
                return dispatch || !object ? Variant::Object(dispatch.Get()) : Variant::Unknown(object);
            },
            [this](ScriptReference script) {
                return Variant::Object(ObjectFor(script.number, script.isCallable).Get());
            }},
        value);
}

std::vector<Variant> ScriptContext::ReadValues(const Json& values) {
    std::vector<Variant> read;
    for (const Json& value : values)
        read.push_back(ReadValue(ParsePageValue(value)));
    return read;
}

ScriptContext::Outcome ScriptContext::ReadOutcome(const Json& outcome) {
    using Type = Outcome::Type;
    static constexpr struct {
        protocol::Name<protocol::Kind::kOutcome> tag;
        Type type;
    } kTypes[] = {
        {"value", Type::kValue},     {"absent", Type::kAbsent}, {"present", Type::kPresent},
        {"members", Type::kMembers}, {"names", Type::kNames},   {"error", Type::kError},
    };
    static_assert(std::size(kTypes) == protocol::Count(protocol::Kind::kOutcome));
    const std::string_view tag = outcome.at(0).get_ref<const std::string&>();
    Outcome read;
    for (const auto& [known, type] : kTypes) {
        if (known == tag) read.type = type;
    }
    if (read.type == Type::kValue) {
        read.value = ReadValue(ParsePageValue(outcome.at(1)));
    } else if (read.type == Type::kMembers) {
        ReadMembers(outcome, &read);
    } else if (read.type == Type::kNames) {
        for (size_t i = 1; i < outcome.size(); ++i)
            read.names.push_back(ReadText(outcome.at(i)));
    } else if (read.type == Type::kError) {
        const HRESULT number = outcome.at(1).get<int>();
        if (FAILED(number)) read.number = number;
        read.message = ReadText(outcome.at(2));
    }
    return read;
}

void ScriptContext::ReadMembers(const Json& outcome, Outcome* read) {
    read->isComplete = outcome.at(1).get<bool>();
    for (size_t i = 2; i + 1 < outcome.size(); i += 2) {
        const PageValue value = ParsePageValue(outcome.at(i + 1));
        const bool isUnread = std::holds_alternative<UnreadValue>(value);
        read->members[ReadText(outcome.at(i))] = isUnread ? std::nullopt : std::optional(ReadValue(value));
    }
}

std::string ScriptContext::Write(const VARIANT& value) {
    return ScriptValue(
        value,
        [](void* context, IUnknown* object) {
            return static_cast<ScriptContext*>(context)->WriteObject(object);
        },
        this);
}

// A script object of this page is passed as itself.
std::string ScriptContext::WriteObject(IUnknown* object) {
    const auto script = Query<IRemoteObject>(object);
    if (script && script->Context() == this) return TaggedValue("f", std::to_string(script->Number()));
    if (!alive_) throw StatusError(RPC_E_DISCONNECTED);  // the reference would never be released
    const int number = natives_.AddReference(object);
    return TaggedValue("o", std::to_string(number) + (natives_.IsCallable(number) ? ",true" : ",false"));
}

}  // namespace tarvik
