// Values between the script of a page and native code, as injected/bridge/values.js writes and reads them.

#include <climits>
#include <iterator>
#include <limits>
#include <string>

#include "page_control/bridge/remote_object.h"
#include "page_control/bridge/script_context.h"
#include "page_control/bridge/script_source.h"
#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

double SpecialNumber(const std::string& name) {
    if (name == "-0") return -0.0;
    if (name == "NaN") return std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    return name == "Infinity" ? infinity : -infinity;
}

// Whole numbers in 32 bits are integers, as the system's script engine passes them; all others are doubles.
Variant ReadNumber(const Json& number) {
    const double value = number.get<double>();
    const bool fits = number.is_number_integer() && value >= LONG_MIN && value <= LONG_MAX;
    return fits ? Variant::I4(number.get<LONG>()) : Variant::R8(value);
}

// Pages use a BigInt to pass an unsigned type, which some members require. Only a negative one is signed.
Variant ReadBigInt(const Json& number) {
    if (!number.is_number_unsigned()) return Variant::I8(number.get<LONGLONG>());
    const auto value = number.get<ULONGLONG>();
    return value <= ULONG_MAX ? Variant::UI4(static_cast<ULONG>(value)) : Variant::UI8(value);
}

}  // namespace

std::wstring ScriptContext::ReadText(const Json& text) {
    if (text.is_string()) return Widen(text.get_ref<const std::string&>());
    std::wstring units;
    for (const Json& unit : text.at(1))
        units += static_cast<wchar_t>(unit.get<unsigned>());
    return units;
}

Variant ScriptContext::ReadValue(const Json& value) {
    if (value.is_null()) return Variant::Null();
    if (value.is_boolean()) return Variant::Bool(value.get<bool>());
    if (value.is_string()) return Variant::Text(ReadText(value));
    if (value.is_number()) return ReadNumber(value);
    const std::string& tag = value.at(0).get_ref<const std::string&>();
    if (tag == "n") return Variant::R8(SpecialNumber(value.at(1)));
    if (tag == "i") return ReadBigInt(value.at(1));
    if (tag == "s") return Variant::Text(ReadText(value));
    if (tag == "f") return Variant::Object(ObjectFor(value.at(1), value.at(2)).Get());
    if (tag != "o") return Variant();
    IUnknown* const object = natives_.Object(value.at(1));
    const auto dispatch = Query<IDispatch>(object);
    return dispatch || !object ? Variant::Object(dispatch.Get()) : Variant::Unknown(object);
}

std::vector<Variant> ScriptContext::ReadValues(const Json& values) {
    std::vector<Variant> read;
    for (const Json& value : values)
        read.push_back(ReadValue(value));
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
        read.value = ReadValue(outcome.at(1));
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

// ["members", complete, name, value, ...], with ["?"] for a value that must be read.
void ScriptContext::ReadMembers(const Json& outcome, Outcome* read) {
    read->isComplete = outcome.at(1).get<bool>();
    for (size_t i = 2; i + 1 < outcome.size(); i += 2) {
        const Json& value = outcome.at(i + 1);
        const bool isUnread = value.is_array() && value.at(0) == "?";
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
    if (script && script->Context() == this) return R"(["f",)" + std::to_string(script->Number()) + "]";
    if (!alive_) throw StatusError(RPC_E_DISCONNECTED);  // the reference would never be released
    const int number = natives_.AddReference(object);
    return R"(["o",)" + std::to_string(number) + (natives_.IsCallable(number) ? ",true]" : ",false]");
}

}  // namespace tarvik
